#include "jtcore/AnlXlate/ProvenStates.h"
#include "jtcore/Services/Registry.h"
#include "jtcore/Services/User.h"
#include "jtcore/Services/UserPreferences.h"
#include "tests/expectFailure.h"
#include "tests/stateBuilder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

// Preferences are kept in a folder of this run's own, which is empty.
class OwnFolder : public testing::Environment {
public:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "kolma-settings-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        path = pattern;
        ::setenv("XDG_CONFIG_HOME", pattern.c_str(), 1);
    }
    void TearDown() override { std::filesystem::remove_all(path); }

    static inline std::filesystem::path path;
};
const auto* const ownFolder [[maybe_unused]] = testing::AddGlobalTestEnvironment(new OwnFolder);

using BadFormat = MissingOrBadPersistentSettingsFormatException;

ListBuilder aJob() {
    return list()
        .name(u"job-name", u"Quarterly report")
        .integer(u"copies", 12)
        .keyword(u"sides", u"two-sided-long-edge")
        .set(u"page-ranges", list().range(u"value", 1, 5).range(u"value", 8, 9))
        .collection(u"media-col", list().keyword(u"media-color", u"white").integer(u"media-weight-metric", 90000));
}

const std::string shownJob = show(aJob());

// A job whose state has exactly that many bytes: a name that does not compress, of the length that gives it.
AttrNodeList jobWithStateOf(std::size_t size) {
    constexpr std::u16string_view letters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-.";
    std::mt19937 random(1);
    std::u16string text;
    while (text.size() < 8000)
        text += letters[random() % letters.size()];
    PersistentSettings settings;
    std::size_t shortest = size / 2, longest = size * 2;
    while (shortest < longest) {
        std::size_t middle = (shortest + longest) / 2;
        settings.setAttrNodeList(list().name(u"job-name", std::u16string_view(text).substr(0, middle)));
        (settings.getStateSize() < size ? shortest : longest) = settings.getStateSize() < size ? middle + 1 : middle;
    }
    // Near that length, one letter more or less makes one byte or none: some tail gives the size.
    for (std::size_t length = longest - 8; length < longest + 8; ++length)
        for (char16_t last : letters) {
            std::u16string name = text.substr(0, length) + last;
            settings.setAttrNodeList(list().name(u"job-name", name));
            if (settings.getStateSize() == size) return list().name(u"job-name", name);
        }
    ADD_FAILURE() << "no job has a state of " << size << " bytes";
    return {};
}

TEST(PersistentSettings, theInitialStateIsLaidOutByteForByte) {
    const PersistentSettings settings;
    const ByteBuffer& state = settings.getState();
    EXPECT_EQ(firstOf(state, 8), bytesOf({8, 0, 0, 0, 0x01, 0x00, 0x08, 0x03}));
    EXPECT_EQ(ByteBuffer(state.getData() + state.getSize() - 12, 12),
              bytesOf({0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0x02, 0x0A, 'C', 'O', 'M', '4'}));
    const std::u16string user = User::getLogonName();
    ASSERT_LE(user.size(), 255u);
    ByteBuffer name{std::u16string_view(user)};
    name.resize(512);
    EXPECT_EQ(decompressed(state), joined({bytesOf({0x0A, 0x02, 0, 0, 1, 0}), name, bytesOf({1, 1, 1, 0})}));
    EXPECT_TRUE(listOf(settings).isEmpty());
}

TEST(PersistentSettings, theInitialStateTakesThePreferencesAndBearsSpoiltOnes) {
    UserPreferences preferences;
    preferences.setUseLogonNamePreference(false);
    const StateInfo info = PersistentSettings().getStateInfo();
    EXPECT_EQ(std::tuple(info.jobNamePreference, info.useLogonName, info.useLogonNameRecipient),
              std::tuple(true, false, true));
    // Two bytes where a number should be.
    Registry().setStringValue(preferences.getKeyPath(), u"JOB_NAME_PREFERENCE", u"x");
    ASSERT_EQ(errorCodeOf([&] { preferences.getJobNamePreference(); }), "028:000");
    EXPECT_EQ(PersistentSettings().getStateInfo().userName, User::getLogonName());
    EXPECT_FALSE(PersistentSettings().getStateInfo().jobNamePreference);
    std::filesystem::remove_all(OwnFolder::path / "kolma");
}

// The process remembers states that it has read: nothing of that may show.
TEST(PersistentSettings, aStateThatIsKnownReadsAsItDidTheFirstTime) {
    const ByteBuffer state = currentState(recordOf(PersistentSettings()), textOf(aJob(), SmallJtifTranslator()));
    PersistentSettings first;
    ASSERT_TRUE(first.importPersistentSettingsState(state, true));
    const auto shared = first.getSharedList();
    EXPECT_EQ(shared, first.getSharedList()) << "read once";
    PersistentSettings again;
    ASSERT_TRUE(again.importPersistentSettingsState(state, true));
    AttrNodeList list = listOf(again);
    EXPECT_EQ(show(list), shownJob);
    list.clear();
    EXPECT_EQ(show(*shared), shownJob) << "whoever reads gets a list of his own";
    EXPECT_EQ(show(listOf(again)), shownJob);

    again.setUserData(u"somebody else", false, true, false);
    EXPECT_EQ(show(listOf(again)), shownJob);
    EXPECT_EQ(again.getStateInfo().userName, u"somebody else");
    EXPECT_EQ(show(listOf(first)), shownJob);
    const ByteBuffer named = again.getState();
    again.setUserData(u"somebody else", false, true, false);
    EXPECT_EQ(again.getState(), named);
}

TEST(PersistentSettings, aStateThatDiffersInOneByteIsNotTheOneThatIsKnown) {
    PersistentSettings settings;
    settings.setAttrNodeList(aJob());
    const ByteBuffer good = settings.getState();
    std::size_t refused = 0;
    for (std::size_t at = 0; at < good.getSize(); ++at) {
        ASSERT_TRUE(PersistentSettings().importPersistentSettingsState(good, true));
        ByteBuffer bad = good;
        bad.getData()[at] ^= 1;
        PersistentSettings reader;
        if (!reader.importPersistentSettingsState(bad, false)) ++refused;
        EXPECT_EQ(listOf(reader).isEmpty(), show(listOf(reader)) != shownJob) << "byte " << at;
    }
    EXPECT_GT(refused, good.getSize() - 30) << "nearly every byte means something";
}

TEST(PersistentSettings, moreStatesThanAreKeptAreAllReadRightByManyThreads) {
    std::vector<ByteBuffer> states;
    for (std::size_t i = 0; i < 2 * ProvenStates::maximumCount; ++i) {
        PersistentSettings settings;
        settings.setAttrNodeList(list().integer(u"copies", static_cast<std::int32_t>(i)));
        states.push_back(settings.getState());
    }
    std::atomic<int> wrong{0};
    const auto work = [&](unsigned seed) {
        std::mt19937 random(seed);
        for (int round = 0; round < 400; ++round) {
            const std::size_t i = random() % states.size();
            PersistentSettings settings;
            settings.importPersistentSettingsState(states[i], false);
            if (round % 3 == 0) settings.setSettingsEditable(false);
            if (show(listOf(settings)) != "copies=" + std::to_string(i)) ++wrong;
            if (settings.isSettingsEditable() != (round % 3 != 0)) ++wrong;
        }
    };
    std::vector<std::thread> threads;
    for (unsigned seed = 1; seed <= 8; ++seed)
        threads.emplace_back(work, seed);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

TEST(PersistentSettings, aListComesBackAsItWentIn) {
    PersistentSettings settings;
    settings.setAttrNodeList(aJob().integer(u"private-stock-logical-id", 3).hidden());
    EXPECT_EQ(show(listOf(settings)), shownJob);
    EXPECT_EQ(show(*settings.createAttrNodeList()), shownJob);
    AttrNodeList former = list().integer(u"former", 1);
    settings.getAttrNodeList(former);
    EXPECT_EQ(show(former), shownJob);
    settings.setAttrNodeList(AttrNodeList());
    settings.getAttrNodeList(former);
    EXPECT_EQ(show(former), "");
}

TEST(PersistentSettings, eachPartOfTheStateOutlivesChangesOfTheOthers) {
    PersistentSettings settings;
    settings.setUserData(u"J\u00F6rg", false, true, false);
    settings.setAttrNodeList(aJob());
    const ByteBuffer text = decompressed(settings.getState());
    settings.setSettingsEditable(false);
    const ByteBuffer locked = decompressed(settings.getState());
    ASSERT_EQ(locked.getSize(), text.getSize());
    for (std::size_t i = 0; i < text.getSize(); ++i)
        EXPECT_EQ(locked.getData()[i] != text.getData()[i], i == 4) << "byte " << i;
    settings.setUserData(u"Ann", true, false, true);
    const StateInfo info = settings.getStateInfo();
    EXPECT_EQ(info.version, 0x03080001u);
    EXPECT_EQ(info.size, settings.getStateSize());
    EXPECT_FALSE(info.isSettingsEditable);
    EXPECT_FALSE(settings.isSettingsEditable());
    EXPECT_EQ(info.userName, u"Ann");
    EXPECT_EQ(std::tuple(info.jobNamePreference, info.useLogonName, info.useLogonNameRecipient),
              std::tuple(true, false, true));
    EXPECT_EQ(show(listOf(settings)), shownJob);
}

TEST(PersistentSettings, longUserNamesAreCutBetweenCharacters) {
    const std::u16string x254(254, u'x');
    const std::pair<std::u16string, std::u16string> rows[] = {
        {u"", u""},
        {x254 + u"y", x254 + u"y"},
        {x254 + u"yz", x254 + u"y"},
        {std::u16string(300, u'z'), std::u16string(255, u'z')},
        {x254 + u"\U0001F5A8", x254},
    };
    for (const auto& [given, kept] : rows) {
        PersistentSettings settings;
        settings.setUserData(std::u16string(400, u'?'), true, true, true);
        settings.setUserData(given, true, true, true);
        EXPECT_EQ(settings.getStateInfo().userName, kept) << given.size() << " characters";
        EXPECT_EQ(decompressed(settings.getState()).getSize(), 522u);
    }
}

TEST(PersistentSettings, objectsOfOneClassAreEqualByTheirStates) {
    PersistentSettings one, other;
    const KolmaDevMode devMode;
    EXPECT_TRUE(one.equals(other));
    EXPECT_TRUE(one.equals(devMode));
    EXPECT_FALSE(devMode.equals(one));
    one.setAttrNodeList(aJob());
    EXPECT_FALSE(one.equals(other));
    EXPECT_TRUE(one.clone()->equals(one));
    EXPECT_TRUE(devMode.clone()->equals(devMode));
    other = one;
    EXPECT_TRUE(one.equals(other));
    other.setAttrNodeList(listOf(one));
    EXPECT_TRUE(one.equals(other));
}

TEST(PersistentSettings, olderStatesComeUpToDate) {
    PersistentSettings former;
    former.setUserData(u"former user", false, true, false);
    former.setSettingsEditable(false);
    const ByteBuffer record = recordOf(former);
    struct Row {
        const char* name;
        ByteBuffer state;
        std::string attributes;
        bool isEditable;
        std::u16string user;
    };
    const Row rows[] = {
        {"3.7", state37(1, aJob()), shownJob, true, User::getLogonName()},
        {"3.7, locked", state37(0, aJob()), shownJob, false, User::getLogonName()},
        {"3.7, only the front", firstOf(state37(0, aJob()), 10), "", false, User::getLogonName()},
        {"4.0", state40(record, aJob()), shownJob, false, u"former user"},
        {"4.0, no attributes", state40(record, {}), "", false, u"former user"},
        {"4.0, no text", joined({little(8), little(0x04000001), compressed(record)}), "", false, u"former user"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        PersistentSettings settings;
        ASSERT_TRUE(settings.importPersistentSettingsState(row.state, true));
        const StateInfo info = settings.getStateInfo();
        EXPECT_EQ(info.version, 0x03080001u);
        EXPECT_EQ(info.isSettingsEditable, row.isEditable);
        EXPECT_EQ(info.userName, row.user);
        EXPECT_EQ(show(listOf(settings)), row.attributes);
        EXPECT_EQ(PersistentSettings::convertToCurrentState(settings.getState()), settings.getState());
        // A reader of a state need not import it first.
        AttrNodeList nodes;
        settings.bufferToAnl(row.state, nodes);
        EXPECT_EQ(show(nodes), row.attributes);
        EXPECT_NO_THROW(PersistentSettings::validateStateBytes(row.state));
    }
    EXPECT_EQ(recordOf([&] {
                  PersistentSettings settings;
                  settings.importPersistentSettingsState(state40(record, aJob()), true);
                  return settings;
              }()),
              record);
}

TEST(PersistentSettings, aStateCutAnywhereIsRefusedAndChangesNothing) {
    const ByteBuffer record = recordOf(PersistentSettings());
    PersistentSettings settings;
    settings.setAttrNodeList(list().integer(u"copies", 3));
    const ByteBuffer before = settings.getState();
    const std::pair<const char*, ByteBuffer> states[] = {
        {"3.7", state37(1, aJob())},
        {"4.0", state40(record, aJob())},
        {"current", currentState(record, textOf(aJob(), SmallJtifTranslator()))},
    };
    for (const auto& [name, state] : states)
        for (std::size_t size = 0; size < state.getSize(); ++size) {
            const ByteBuffer part = firstOf(state, size);
            // The front of a 3.7 state is a state without attributes.
            if (std::string_view(name) == "3.7" && size == 10) continue;
            EXPECT_FALSE(settings.importPersistentSettingsState(part, false)) << name << " cut to " << size;
            EXPECT_NE(errorCodeOf([&] { settings.importPersistentSettingsState(part, true); }), "")
                << name << " " << size;
            ASSERT_EQ(settings.getState(), before) << name << " cut to " << size;
        }
}

TEST(PersistentSettings, aStateThatCannotBeReadSaysWhy) {
    const ByteBuffer record = recordOf(PersistentSettings());
    const ByteBuffer good = currentState(record, {});
    ByteBuffer damaged = good;
    damaged.getData()[12] ^= 0xFF;
    ByteBuffer wrongSize = record;
    wrongSize.getData()[0] = 0x0B;
    const std::string noHeader = "PersistentSettings::importPersistentSettingsState(): Import request ignored. Don't "
                                 "have header structure of the "
                                 "most recent version. The header information doesn't exist or doesn't match.\r\n";
    struct Row {
        ByteBuffer state;
        std::string code, message;
    };
    const Row rows[] = {
        {firstOf(good, 7), "027:000",
         "PersistentSettings::getMajorComponentsFromStateDataBuffer: The ByteBuffer data is not big enough (7 bytes) "
         "to "
         "contain the required header  (8 bytes)!\r\n"},
        {joined({little(9), little(0x03080001), compressed(record)}), "027:000", noHeader},
        {joined({little(8), little(0x03090001), compressed(record)}), "027:000", noHeader},
        {joined({little(10), little(0x03080001), compressed(record)}), "027:000", noHeader},
        {currentState(firstOf(record, 521), {}), "027:000",
         "PersistentSettings::getComponentsFromCompressedDataBuffer: The ByteBuffer data is not big enough (521 bytes) "
         "to "
         "contain the required header (522 bytes)!\r\n"},
        {currentState(wrongSize, {}), "027:000",
         "PersistentSettings::importPersistentSettingsState(): Import request ignored. Don't have a data structure of "
         "the "
         "most recent version. The data structure in the compressed block doesn't exist or doesn't match.\r\n"},
        {firstOf(good, 8), "017:000",
         "CompressedBuffer::getFooterInfo(): Footer information missing (buffer is 0 bytes versus footer size of 12 or "
         "8) "
         "OR signature bytes were invalid (no). CompressedBuffer ByteBuffer is invalid!\r\n"},
        {damaged, "018:000",
         "CompressedBuffer::getOriginalData(): ZLIB returned an error (Z_DATA_ERROR) from uncompress()!\r\n"},
    };
    for (const Row& row : rows) {
        PersistentSettings settings;
        std::string code, message;
        try {
            settings.importPersistentSettingsState(row.state, true);
        } catch (const KolmaException& failure) {
            code = toUtf8(failure.getErrorCode());
            message = failure.what();
        }
        EXPECT_EQ(code, row.code);
        EXPECT_EQ(message, row.message);
        EXPECT_TRUE(settings.equals(PersistentSettings()));
    }
    PersistentSettings settings;
    EXPECT_NE(errorCodeOf([&] {
                  settings.importPersistentSettingsState(currentState(record, bytesOf({'<', 'x'})), true);
              }),
              "");
}

TEST(PersistentSettings, aStateThatUnpacksBeyondAllMeasureIsRefused) {
    ByteBuffer zeros;
    zeros.resize(1024 * 1024 + 1);
    const ByteBuffer state = joined({little(8), little(0x03080001), compressed(zeros)});
    ASSERT_LE(state.getSize(), 4000u);
    PersistentSettings settings;
    EXPECT_EQ(errorCodeOf([&] { settings.importPersistentSettingsState(state, true); }), "018:000");
}

TEST(KolmaDevMode, theAreaIsLaidOutByteForByte) {
    KolmaDevMode settings;
    settings.setAttrNodeList(aJob());
    // At an odd address, with bytes round it that must stay.
    std::vector<std::uint8_t> memory(4016 + 2, 0xEE);
    settings.exportToDevMode(memory.data() + 1);
    EXPECT_EQ(memory.front(), 0xEE);
    EXPECT_EQ(memory.back(), 0xEE);
    const Area area(memory.begin() + 1, memory.end() - 1);
    const ByteBuffer& state = settings.getState();
    EXPECT_EQ(ByteBuffer(area.data(), 12), bytesOf({0xB0, 0x0F, 0, 0, 0x41, 0x4D, 0x4C, 0x4B, 0x01, 0, 0, 0x04}));
    EXPECT_EQ(ByteBuffer(area.data() + 12, 4), little(static_cast<std::uint32_t>(state.getSize())));
    EXPECT_EQ(ByteBuffer(area.data() + 16, state.getSize()), state);
    EXPECT_TRUE(std::all_of(area.begin() + static_cast<std::ptrdiff_t>(16 + state.getSize()), area.end(),
                            [](std::uint8_t byte) { return byte == 0; }));
    EXPECT_TRUE(KolmaDevMode(memory.data() + 1).equals(settings));
    static_assert(KolmaDevMode::getDevModeSize() == 4016);
}

TEST(KolmaDevMode, theHeaderAloneSaysWhetherAnAreaIsOurs) {
    const Area good = areaOf(KolmaDevMode().getState());
    struct Row {
        const char* name;
        std::size_t at;
        std::uint32_t value;
        bool isValid;
    };
    const Row rows[] = {
        {"as written", 8, 0x04000001, true},       {"older version", 8, 0x03070002, true},
        {"state's version", 8, 0x03080001, false}, {"size", 0, 4015, false},
        {"signature", 4, 0x4B4C4D42, false},       {"data size", 12, 0xFFFFFFFF, true},
    };
    for (const Row& row : rows) {
        Area area = good;
        const ByteBuffer bytes = little(row.value);
        std::copy_n(bytes.getData(), 4, area.begin() + static_cast<std::ptrdiff_t>(row.at));
        EXPECT_EQ(KolmaDevMode::isValidArea(area.data()), row.isValid) << row.name;
        EXPECT_EQ(KolmaDevMode::getAreaInfo(area.data()).isValid, row.isValid) << row.name;
        if (row.isValid) continue;
        KolmaDevMode settings;
        EXPECT_FALSE(settings.importFromDevMode(area.data(), true)) << row.name;
        EXPECT_TRUE(KolmaDevMode(area.data()).equals(KolmaDevMode())) << row.name;
        EXPECT_NO_THROW(KolmaDevMode::validateDevMode(area.data())) << row.name;
    }
    EXPECT_FALSE(KolmaDevMode::isValidArea(nullptr));
    EXPECT_TRUE(KolmaDevMode(Area(4016).data()).equals(KolmaDevMode()));
}

TEST(KolmaDevMode, anAreaTellsOfItselfWhatStandsInIt) {
    const Area area = areaOf(state37(1, aJob()), 0x03070002);
    AreaInfo info = KolmaDevMode::getAreaInfo(area.data());
    EXPECT_EQ(info.areaVersion, 0x03070002u);
    EXPECT_EQ(info.stateVersion, 0x03070001u);
    EXPECT_EQ(info.stateSize, state37(1, aJob()).getSize());
    info = KolmaDevMode::getAreaInfo(areaOf(bytesOf({1, 2, 3})).data());
    EXPECT_EQ(info.stateVersion, 0u);
    EXPECT_EQ(info.stateSize, 3u);
}

TEST(KolmaDevMode, anOlderAreaWithAnOlderStateIsWrittenBackAsACurrentOne) {
    const Area area = areaOf(state37(0, aJob()), 0x03070002);
    const KolmaDevMode settings(area.data());
    EXPECT_FALSE(settings.isSettingsEditable());
    const Area back = exported(settings);
    const AreaInfo info = KolmaDevMode::getAreaInfo(back.data());
    EXPECT_EQ(info.areaVersion, 0x04000001u);
    EXPECT_EQ(info.stateVersion, 0x03080001u);
    EXPECT_EQ(show(listOf(KolmaDevMode(back.data()))), shownJob);
}

TEST(KolmaDevMode, holdsAStateOf4000BytesAndNotOneMore) {
    const AttrNodeList fits = jobWithStateOf(4000);
    const AttrNodeList isTooLong = jobWithStateOf(4001);
    KolmaDevMode settings;
    settings.setAttrNodeList(fits);
    ASSERT_EQ(settings.getStateSize(), 4000u);
    const ByteBuffer before = settings.getState();
    EXPECT_NO_THROW(settings.validateState());
    EXPECT_EQ(show(listOf(KolmaDevMode(exported(settings).data()))), show(fits));
    const std::string overflow = "KolmaDevMode::validateDataToBeStored(): Data to be stored is too large (4001) to fit "
                                 "into the KolmaDmType DevMode structure (4000)!\r\n";
    EXPECT_EQ(messageOf<DevModeOverflowException>([&] { settings.setAttrNodeList(isTooLong); }), overflow);
    EXPECT_EQ(settings.getState(), before);
    PersistentSettings boundless;
    boundless.setAttrNodeList(isTooLong);
    PersistentSettings& base = settings;
    EXPECT_EQ(messageOf<DevModeOverflowException>([&] { base = boundless; }), overflow);
    EXPECT_EQ(settings.getState(), before);
}

TEST(KolmaDevMode, neverReadsPastTheAreaWhateverItsDataSizeSays) {
    const KolmaDevMode good;
    for (std::uint32_t size : {4001U, 4016U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        Area area = exported(good);
        const ByteBuffer bytes = little(size);
        std::copy_n(bytes.getData(), 4, area.begin() + 12);
        const std::string message = "KolmaDevMode::importFromDevMode(): The size of the data (" + std::to_string(size) +
                                    ") is more than the KolmaDmType DevMode structure holds (4000)!\r\n";
        KolmaDevMode settings;
        EXPECT_EQ(messageOf<BadFormat>([&] { settings.importFromDevMode(area.data(), true); }), message);
        EXPECT_EQ(messageOf<BadFormat>([&] { KolmaDevMode{area.data()}; }), message);
        EXPECT_EQ(messageOf<BadFormat>([&] { KolmaDevMode::validateDevMode(area.data()); }), message);
        EXPECT_FALSE(settings.importFromDevMode(area.data(), false));
        EXPECT_TRUE(settings.equals(good));
    }
}

// After any import, whatever it made of the area, the settings read, and export to an area that reads the same.
void expectUsable(const KolmaDevMode& settings) {
    ASSERT_NO_THROW(settings.validateState());
    const AttrNodeList nodes = listOf(settings);
    const Area area = exported(settings);
    ASSERT_TRUE(KolmaDevMode::isValidArea(area.data()));
    ASSERT_TRUE(KolmaDevMode(area.data()).equals(settings));
}

// Every byte of the fixed fields and of the state takes every other value. The bytes behind the state are not read:
// each of them takes one other value.
TEST(KolmaDevMode, noChangeOfOneByteDoesMoreThanSpoilTheSettings) {
    KolmaDevMode settings;
    settings.setAttrNodeList(aJob());
    const KolmaDevMode former;
    const Area good = exported(settings);
    const std::size_t read = 16 + settings.getStateSize();
    std::size_t accepted = 0;
    for (std::size_t at = 0; at < good.size(); ++at)
        for (unsigned change = 1; change < (at < read ? 256U : 2U); ++change) {
            SCOPED_TRACE(testing::Message() << "byte " << at << " changed by " << change);
            Area area = good;
            area[at] = static_cast<std::uint8_t>(area[at] ^ change);
            KolmaDevMode target = former;
            if (target.importFromDevMode(area.data(), false)) {
                ++accepted;
                if (target.getState() == settings.getState()) continue;
                ASSERT_EQ(show(listOf(target)), shownJob);
                ASSERT_NO_FATAL_FAILURE(expectUsable(target));
                ASSERT_TRUE(KolmaDevMode(area.data()).equals(target));
            } else {
                ASSERT_EQ(target.getState(), former.getState());
                if (KolmaDevMode::isValidArea(area.data()))
                    ASSERT_NE(errorCodeOf([&] { KolmaDevMode{area.data()}; }), "");
                else
                    ASSERT_TRUE(KolmaDevMode(area.data()).equals(former));
            }
        }
    EXPECT_GE(accepted, good.size() - read);
}

} // namespace
