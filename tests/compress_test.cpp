#include "jtcore/Compress/CompressedBuffer.h"
#include "jtcore/Compress/zlibBuffer.h"
#include "tests/expectFailure.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <malloc.h>
#include <new>
#include <random>
#include <thread>
#include <vector>
#include <zlib.h>

namespace {

// What the program holds of the heap through operator new, and the most it held since the last reset.
std::atomic<std::size_t> held;
std::atomic<std::size_t> mostHeld;

std::size_t mostHeldDuring(auto&& body) {
    mostHeld = held.load();
    std::size_t before = held;
    body();
    return mostHeld - before;
}

ByteBuffer bytesOf(std::string_view text) { return ByteBuffer(text.data(), text.size()); }

std::string textOf(const ByteBuffer& bytes) {
    return {reinterpret_cast<const char*>(bytes.getData()), bytes.getSize()};
}

ByteBuffer randomBytes(std::mt19937& random, std::size_t size, unsigned variety) {
    std::string text(size, '\0');
    for (char& c : text)
        c = static_cast<char>(random() % variety);
    return bytesOf(text);
}

std::string bigEndian(std::uint32_t value) {
    return {static_cast<char>(value >> 24U), static_cast<char>(value >> 16U), static_cast<char>(value >> 8U),
            static_cast<char>(value)};
}

// A zlib stream, made by the library itself.
std::string streamOf(std::string_view original) {
    std::string stream(compressBound(static_cast<uLong>(original.size())), '\0');
    auto length = static_cast<uLongf>(stream.size());
    compress2(reinterpret_cast<Bytef*>(stream.data()), &length, reinterpret_cast<const Bytef*>(original.data()),
              static_cast<uLong>(original.size()), 9);
    return stream.substr(0, length);
}

ByteBuffer block(const std::string& stream, std::size_t claim) {
    return bytesOf(stream + bigEndian(0xFFFFFFFF) + bigEndian(static_cast<std::uint32_t>(claim)) + "COM4");
}

ByteBuffer originalOf(const CompressedBuffer& compressed) {
    ByteBuffer original;
    compressed.getOriginalData(original);
    return original;
}

const std::string ticket = "copies=2 sides=two-sided-long-edge media=letter-blue copies=2 sides=one-sided media=a4";

} // namespace

void* operator new(std::size_t size) {
    void* block = std::malloc(size);
    if (block == nullptr) throw std::bad_alloc();
    std::size_t now = held += malloc_usable_size(block);
    for (std::size_t most = mostHeld; now > most && !mostHeld.compare_exchange_weak(most, now);) {
    }
    return block;
}

void operator delete(void* block) noexcept {
    if (block != nullptr) held -= malloc_usable_size(block);
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

TEST(CompressedBuffer, storingNothingGivesTheFooterAlone) {
    CompressedBuffer compressed(-1);
    EXPECT_EQ(textOf(compressed.getStoredData()), bigEndian(0xFFFFFFFF) + bigEndian(0) + "COM4");
    compressed.store(bytesOf(ticket));
    compressed.store(nullptr, 0);
    EXPECT_EQ(textOf(compressed.getStoredData()), bigEndian(0xFFFFFFFF) + bigEndian(0) + "COM4");
    EXPECT_TRUE(originalOf(compressed).isEmpty());
}

TEST(CompressedBuffer, theStoredFormIsAPlainStreamAndABigEndianFooter) {
    CompressedBuffer compressed(9);
    compressed.store(bytesOf(ticket));
    EXPECT_EQ(textOf(compressed.getStoredData()),
              streamOf(ticket) + bigEndian(9) + bigEndian(static_cast<std::uint32_t>(ticket.size())) + "COM4");
    EXPECT_EQ(compressed.getOriginalSize(), ticket.size());
    EXPECT_EQ(textOf(originalOf(CompressedBuffer(compressed.getStoredData()))), ticket);
}

TEST(CompressedBuffer, aBlockOfTheOlderFormComesOutInTheCurrentOne) {
    std::string stream = streamOf(ticket);
    ByteBuffer old = bytesOf(stream + bigEndian(static_cast<std::uint32_t>(ticket.size())) + "COMP");
    CompressedBuffer compressed(old);
    EXPECT_EQ(compressed.getLevel(), -1);
    EXPECT_EQ(compressed.getStoredData(), block(stream, ticket.size()));
    EXPECT_EQ(textOf(originalOf(compressed)), ticket);
}

TEST(CompressedBuffer, aFooterIsReadOnlyWhereThereIsOne) {
    struct Row {
        std::string stored;
        const char* looked; // "" when there is a footer
        std::size_t original;
    };
    const Row rows[] = {
        {"", "no", 0},
        {"x7bytes", "no", 0},
        {std::string("\0COM4", 5), "no", 0},
        {"12 bytesxxxx", "yes", 0},
        {"8 bytes!", "yes", 0},
        {"xxxxxxxxcom4", "yes", 0},
        {bigEndian(5) + "COMP", "", 5},
        {"abc" + bigEndian(5) + "COMP", "", 5},
        {"abc" + bigEndian(5) + "COM4", "", 5},
        {bigEndian(9) + bigEndian(0x01020304) + "COM4", "", 0x01020304},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.stored));
        if (*row.looked == '\0') {
            EXPECT_EQ(CompressedBuffer(bytesOf(row.stored)).getOriginalSize(), row.original);
            continue;
        }
        EXPECT_EQ(messageOf<MissingOrBadCompressedBufferFooterException>(
                      [&] { CompressedBuffer compressed(bytesOf(row.stored)); }),
                  "CompressedBuffer::getFooterInfo(): Footer information missing (buffer is " +
                      std::to_string(row.stored.size()) +
                      " bytes versus footer size of 12 or 8) OR signature bytes were invalid (" + row.looked +
                      "). CompressedBuffer ByteBuffer is invalid!\r\n");
    }
}

TEST(CompressedBuffer, aClaimIsBelievedOnlyAsFarAsTheStreamBearsItOut) {
    const std::string zlibError = "CompressedBuffer::getOriginalData(): ZLIB returned an error (";
    std::string good = streamOf(ticket);
    std::string damaged = good;
    damaged[good.size() / 2] = static_cast<char>(damaged[good.size() / 2] ^ 0x55);
    auto size = ticket.size();
    struct Row {
        const char* what;
        ByteBuffer stored;
        std::string message;
    };
    const Row rows[] = {
        {"one more", block(good, size + 1),
         "CompressedBuffer::getOriginalData(): Uncompressed data size (" + std::to_string(size) +
             ") doesn't match the expected size of the original data (" + std::to_string(size + 1) + ")!\r\n"},
        {"one less", block(good, size - 1), zlibError + "Z_BUF_ERROR) from uncompress()!\r\n"},
        {"none", block(good, 0), zlibError + "Z_DATA_ERROR) from uncompress()!\r\n"},
        {"no stream", block("", size), zlibError + "Z_DATA_ERROR) from uncompress()!\r\n"},
        {"damaged", block(damaged, size), zlibError + "Z_DATA_ERROR) from uncompress()!\r\n"},
        {"cut", block(good.substr(0, good.size() - 1), size), zlibError + "Z_BUF_ERROR) from uncompress()!\r\n"},
        {"more behind", block(good + "x", size), zlibError + "Z_DATA_ERROR) from uncompress()!\r\n"},
        {"above the limit", block(good, CompressedBuffer::settingsLimit + 1),
         "CompressedBuffer::getOriginalData(): The size of the original data (1048577) is above the limit of 1048576 "
         "bytes!\r\n"},
        {"above everything", block(good, 0xFFFFFFFF),
         "CompressedBuffer::getOriginalData(): The size of the original data (4294967295) is above the limit of "
         "1048576 bytes!\r\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        CompressedBuffer compressed(row.stored);
        ByteBuffer out = bytesOf("before");
        EXPECT_EQ(messageOf<CompressionException>([&] { compressed.getOriginalData(out); }), row.message);
        EXPECT_EQ(textOf(out), "before");
        EXPECT_EQ(compressed.getStoredData(), row.stored);
    }
}

TEST(CompressedBuffer, aFailedStoreLeavesTheObjectAsItWas) {
    CompressedBuffer compressed(
        bytesOf(streamOf(ticket) + bigEndian(77) + bigEndian(static_cast<std::uint32_t>(ticket.size())) + "COM4"));
    EXPECT_EQ(compressed.getLevel(), 77);
    EXPECT_EQ(messageOf<CompressionException>([&] { compressed.store("new", 3); }),
              "CompressedBuffer::store(): ZLIB returned an error (Z_STREAM_ERROR) from compress()!\r\n");
    EXPECT_EQ(textOf(originalOf(compressed)), ticket);
}

TEST(CompressedBuffer, itsOwnBytesCanBeStoredInIt) {
    CompressedBuffer compressed;
    compressed.store(bytesOf(ticket));
    std::string stored = textOf(compressed.getStoredData());
    compressed.store(compressed.getData(), compressed.getSize());
    EXPECT_EQ(textOf(originalOf(compressed)), stored);
}

TEST(CompressedBuffer, everyTruncationIsRefused) {
    const ByteBuffer good = block(streamOf(ticket), ticket.size());
    for (std::size_t size = 0; size < good.getSize(); ++size) {
        SCOPED_TRACE(size);
        EXPECT_EQ(errorCodeOf([&] { CompressedBuffer compressed(ByteBuffer(good.getData(), size)); }), "017:000");
        // The end is lost and the rest moved together: the footer stands, the stream does not.
        if (size + 12 >= good.getSize()) continue;
        ByteBuffer cut(good.getData(), size);
        cut.appendData(good.getData() + good.getSize() - 12, 12);
        EXPECT_EQ(errorCodeOf([&] { originalOf(CompressedBuffer(cut)); }), "018:000");
    }
}

TEST(CompressedBuffer, noSingleChangedByteGivesOtherData) {
    const ByteBuffer good = block(streamOf(ticket), ticket.size());
    std::size_t signature = good.getSize() - 4;
    std::size_t level = good.getSize() - 12;
    int read = 0;
    for (std::size_t at = 0; at < good.getSize(); ++at) {
        for (unsigned change = 1; change < 256; ++change) {
            ByteBuffer bad = good;
            bad.getData()[at] ^= static_cast<std::uint8_t>(change);
            ByteBuffer out;
            std::string code = errorCodeOf([&] { out = originalOf(CompressedBuffer(bad)); });
            // Nothing checks the level, and "COMP" differs from "COM4" in one byte: the level is then stream.
            bool isOtherForm = at == good.getSize() - 1 && bad.getData()[at] == 'P';
            std::string expected = at >= signature && !isOtherForm ? "017:000" : "018:000";
            if (at >= level && at < level + 4) expected.clear();
            // A few bits of the stream mean nothing to the result.
            if (at < level && code.empty()) {
                ++read;
                expected.clear();
            }
            ASSERT_EQ(code, expected) << "byte " << at << " ^ " << change;
            if (!code.empty()) continue;
            ASSERT_EQ(textOf(out), ticket) << "byte " << at << " ^ " << change;
        }
    }
    EXPECT_LT(read, 300);
}

TEST(CompressedBuffer, randomDataComesBack) {
    auto seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (int round = 0; round < 200; ++round) {
        ByteBuffer original = randomBytes(random, round == 0 ? 10000 : random() % 10001, 1 + random() % 256);
        auto level = static_cast<std::int32_t>(random() % 11) - 1;
        CompressedBuffer compressed(level);
        compressed.store(original);
        EXPECT_EQ(originalOf(CompressedBuffer(compressed.getStoredData())), original) << "round " << round;
        ByteBuffer stream;
        ByteBuffer back;
        compressBuffer(original, stream, level);
        uncompressBuffer(stream, back);
        EXPECT_EQ(back, original) << "round " << round;
    }
}

// The stream is kept between uses, and must not carry anything over. Each thread finds the bytes that zlib gives alone.
TEST(CompressedBuffer, whatWasCompressedBeforeLeavesNoTrace) {
    std::atomic<int> wrong{0};
    const auto work = [&wrong](unsigned seed) {
        std::mt19937 random(seed);
        for (int round = 0; round < 40; ++round) {
            const ByteBuffer original = randomBytes(random, random() % 40000, 1 + random() % 256);
            ByteBuffer expected;
            expected.resize(compressBound(original.getSize()));
            auto size = static_cast<uLongf>(expected.getSize());
            compress2(expected.getData(), &size, original.getData(), original.getSize(), -1);
            expected.resize(size);
            CompressedBuffer compressed;
            compressed.store(original);
            if (original.isEmpty()) continue;
            if (ByteBuffer(compressed.getData(), compressed.getSize() - 12) != expected) ++wrong;
        }
    };
    std::vector<std::thread> threads;
    for (unsigned seed = 1; seed <= 4; ++seed)
        threads.emplace_back(work, seed);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

TEST(CompressedBuffer, aBombIsRefusedBeforeItTakesMemory) {
    const std::string zeros(4100000, '\0');
    std::string stream = streamOf(zeros);
    ASSERT_LE(stream.size(), 3996U);
    struct Row {
        std::size_t claim;
        std::size_t memory;
    };
    // The true claim, a modest lie, and the largest claim that is believed.
    for (const Row& row : {Row{zeros.size(), 16384}, Row{522, 16384}, Row{1048576, 1048576 + 16384}}) {
        SCOPED_TRACE(row.claim);
        ByteBuffer stored = block(stream, row.claim);
        EXPECT_LE(
            mostHeldDuring([&] { EXPECT_EQ(errorCodeOf([&] { originalOf(CompressedBuffer(stored)); }), "018:000"); }),
            row.memory + 2 * stored.getSize());
    }
    EXPECT_EQ(originalOf(CompressedBuffer(block(stream, zeros.size()), zeros.size())).getSize(), zeros.size());
}

TEST(ZlibBuffer, everySizeRoundTheWindowComesBack) {
    std::mt19937 random(4);
    for (std::size_t size : {0U, 1U, 16383U, 16384U, 16385U, 32768U, 300000U}) {
        for (unsigned variety : {1U, 256U}) {
            ByteBuffer data = randomBytes(random, size, variety);
            ByteBuffer buffer = data;
            compressBuffer(buffer, buffer);
            uncompressBuffer(buffer, buffer);
            EXPECT_EQ(buffer, data) << size << " bytes of " << variety << " kinds";
        }
    }
}

TEST(ZlibBuffer, whatIsNoWholeStreamIsRefusedInZlibsWords) {
    const std::string error = "CompressedBuffer::uncompressBuffer(): ZLIB returned an error (";
    std::string good = streamOf(ticket);
    std::string needsDictionary = "\x78\xBB";
    needsDictionary += bigEndian(1234) + "rest";
    struct Row {
        const char* what;
        std::string source;
        std::size_t limit;
        std::string message;
    };
    const Row rows[] = {
        {"nothing", "", capabilityDataLimit, error + "Z_BUF_ERROR) from deflate()!\r\n"},
        {"cut", good.substr(0, good.size() - 1), capabilityDataLimit, error + "Z_BUF_ERROR) from deflate()!\r\n"},
        {"no stream", "<?xml version", capabilityDataLimit, error + "Z_DATA_ERROR) from deflate()!\r\n"},
        {"dictionary", needsDictionary, capabilityDataLimit, error + "Z_NEED_DICT) from deflate()!\r\n"},
        {"above the limit", good, ticket.size() - 1,
         "CompressedBuffer::uncompressBuffer(): The uncompressed data is above the limit of " +
             std::to_string(ticket.size() - 1) + " bytes!\r\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        ByteBuffer out = bytesOf("before");
        EXPECT_EQ(messageOf<CompressionException>([&] { uncompressBuffer(bytesOf(row.source), out, row.limit); }),
                  row.message);
        EXPECT_EQ(textOf(out), "before");
    }
    ByteBuffer out;
    uncompressBuffer(bytesOf(good + "behind the end"), out, ticket.size());
    EXPECT_EQ(textOf(out), ticket);
    EXPECT_EQ(messageOf<CompressionException>([&] { compressBuffer(bytesOf(ticket), out, 10); }),
              "CompressedBuffer::compressBuffer(): ZLIB returned an error (Z_STREAM_ERROR) from deflateInit()!\r\n");
    EXPECT_EQ(textOf(out), ticket);
}

TEST(ZlibBuffer, aBombIsStoppedAtTheLimit) {
    std::string stream = streamOf(std::string(64U * 1024 * 1024, '\0'));
    ByteBuffer source = bytesOf(stream);
    ByteBuffer out;
    EXPECT_LE(mostHeldDuring([&] { EXPECT_EQ(errorCodeOf([&] { uncompressBuffer(source, out); }), "018:000"); }),
              64U * 1024 * 1024);
}

TEST(ZlibBuffer, everyCodeOfZlibHasItsName) {
    struct Row {
        int code;
        const char* name;
    };
    const Row rows[] = {{0, "Z_OK"},
                        {1, "Z_STREAM_END"},
                        {2, "Z_NEED_DICT"},
                        {-1, "Z_ERRNO"},
                        {-2, "Z_STREAM_ERROR"},
                        {-3, "Z_DATA_ERROR"},
                        {-4, "Z_MEM_ERROR"},
                        {-5, "Z_BUF_ERROR"},
                        {-6, "Z_VERSION_ERROR"},
                        {-7, "<Unrecognized ZLIB Return Code -7>"},
                        {3, "<Unrecognized ZLIB Return Code 3>"}};
    for (const Row& row : rows)
        EXPECT_EQ(toUtf8(getZlibCodeText(row.code)), row.name);
}
