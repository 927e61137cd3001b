#include "jtcore/Services/DialogResource.h"

#include "jtcore/Services/DialogTemplateReader.h"
#include "jtcore/Services/KolmaException.h"

#include <numeric>

namespace {

constexpr std::uint32_t visibleStyle = 0x10000000; // WS_VISIBLE
constexpr std::size_t styleTopByte = 3;
constexpr std::size_t boundary = 4;

void hide(std::vector<std::uint8_t>& item) {
    item[styleTopByte] = static_cast<std::uint8_t>(item[styleTopByte] & ~(visibleStyle >> 24));
}

// The last part of a template may come without its padding; joined, another part follows it.
void pad(std::vector<std::uint8_t>& part) { part.resize((part.size() + boundary - 1) / boundary * boundary); }

void writeCount(std::uint8_t* header, std::size_t count) {
    header[DialogTemplateReader::countOffset] = static_cast<std::uint8_t>(count);
    header[DialogTemplateReader::countOffset + 1] = static_cast<std::uint8_t>(count >> 8);
}

} // namespace

DialogResource::DialogResource(std::uint16_t resourceId, bool hidden)
    : ResourceData(resourceId, resourceTypeDialog), isHidden_(hidden) {}

std::size_t DialogResource::getResourceSize() const {
    return std::accumulate(items_.begin(), items_.end(), getBytes().getSize(),
                           [](std::size_t sum, const Bytes& item) { return sum + item.size(); });
}

const std::uint8_t* DialogResource::getResourceData() const {
    if (getBytes().isEmpty())
        raise<ResourceAcquisitionException>(
            u"DialogResource::getResourceData() failed - ResourceData ByteBuffer EMPTY!\r\n");
    const std::uint8_t* header = getBytes().getData();
    Bytes whole;
    whole.reserve(getResourceSize());
    whole.assign(header, header + getBytes().getSize());
    writeCount(whole.data(), items_.size());
    for (const Bytes& item : items_)
        whole.insert(whole.end(), item.begin(), item.end());
    composed_ = std::move(whole);
    return composed_.data();
}

void DialogResource::setResourceType(std::int32_t) { ResourceData::setResourceType(resourceTypeDialog); }

void DialogResource::resourceLoaded(std::int32_t resourceType, std::size_t size, const void* data) {
    const std::span<const std::uint8_t> bytes(static_cast<const std::uint8_t*>(data), size);
    DialogTemplateReader reader(bytes);
    const std::size_t count = reader.readHeader();
    Bytes header(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(reader.getPosition()));
    pad(header);
    std::vector<Bytes> items;
    for (std::size_t i = 0; i < count; ++i) {
        const auto item = reader.readItem();
        items.emplace_back(item.begin(), item.end());
        pad(items.back());
        if (isHidden_) hide(items.back());
    }
    reader.readEnd();
    ResourceData::resourceLoaded(resourceType, header.size(), header.data());
    items_ = std::move(items);
}

void DialogResource::reset(std::uint16_t resourceId) {
    ResourceData::reset(resourceId);
    items_.clear();
    composed_.clear();
}

void DialogResource::resetDialog(std::uint16_t resourceId, bool hidden) {
    reset(resourceId);
    isHidden_ = hidden;
}

DialogResource& DialogResource::operator+(const DialogResource& other) {
    if (other.getBytes().isEmpty()) return *this;
    if (getBytes().isEmpty()) {
        *this = other;
        isHidden_ = false;
        return *this;
    }
    const std::size_t count = items_.size() + other.items_.size();
    if (count > maximumItems)
        raise<ExceededNumberOfDlgItems>(u"EXCEPTION: DialogResource::operator+() detected >65535 DlgItems.\r\n");
    items_.reserve(count); // so that a resource can be joined to itself
    for (std::size_t i = 0, added = other.items_.size(); i < added; ++i)
        items_.push_back(other.items_[i]);
    return *this;
}
