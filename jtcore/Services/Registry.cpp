#include "jtcore/Services/Registry.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/quietly.h"
#include "platform/registry.h"

namespace {

// An open key, closed with the object.
class Key {
public:
    Key() = default;
    ~Key() {
        quietly([this] {
            if (handle_ != nullptr) RegCloseKey(handle_);
        });
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    LSTATUS open(const std::u16string& path) {
        return RegOpenKeyExW(HKEY_CURRENT_USER, toWide(path), 0, KEY_READ, &handle_);
    }
    LSTATUS create(const std::u16string& path) {
        return RegCreateKeyExW(HKEY_CURRENT_USER, toWide(path), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &handle_,
                               nullptr);
    }
    LSTATUS query(const std::u16string& name, std::uint8_t* data, DWORD& size) const {
        return RegQueryValueExW(handle_, toWide(name), nullptr, nullptr, data, &size);
    }
    LSTATUS set(const std::u16string& name, DWORD type, const ByteBuffer& bytes) const {
        return RegSetValueExW(handle_, toWide(name), 0, type, bytes.getData(), static_cast<DWORD>(bytes.getSize()));
    }

private:
    HKEY handle_ = nullptr;
};

} // namespace

bool Registry::getValue(const std::u16string& keyPath, const std::u16string& name, ByteBuffer& out) const {
    out.clear();
    Key key;
    if (key.open(keyPath) != ERROR_SUCCESS) return false;
    DWORD size = 0;
    LSTATUS result = key.query(name, nullptr, size);
    if (result == ERROR_SUCCESS && size > maximumSize) result = ERROR_MORE_DATA;
    if (result == ERROR_FILE_NOT_FOUND) return false;
    if (result != ERROR_SUCCESS)
        raise<RegistryRequestException>(
            u"Registry::getValue(): Call to RegQueryValueEx(%s) failed with result of %ld (0x%lx).\r\n", name, result,
            result);
    if (size == 0) return false;
    out.resize(size);
    // The value may have become shorter in between.
    if (key.query(name, out.getData(), size) == ERROR_SUCCESS) out.resize(size);
    return true;
}

std::int32_t Registry::getLongValue(const std::u16string& keyPath, const std::u16string& name,
                                    std::int32_t fallback) const {
    ByteBuffer bytes;
    getValue(keyPath, name, bytes);
    return bytes.isEmpty() ? fallback : bytes.getAsLongValue();
}

std::u16string Registry::getStringValue(const std::u16string& keyPath, const std::u16string& name,
                                        const std::u16string& fallback) const {
    ByteBuffer bytes;
    if (!getValue(keyPath, name, bytes)) return fallback;
    std::u16string text = bytes.getAsString();
    text.erase(text.find_last_not_of(u'\0') + 1);
    return text;
}

bool Registry::hasValue(const std::u16string& keyPath, const std::u16string& name) const {
    Key key;
    DWORD size = 0;
    return key.open(keyPath) == ERROR_SUCCESS && key.query(name, nullptr, size) == ERROR_SUCCESS;
}

void Registry::setValue(const std::u16string& keyPath, const std::u16string& name, DWORD type,
                        const ByteBuffer& bytes) const {
    Key key;
    if (LSTATUS result = key.create(keyPath); result != ERROR_SUCCESS)
        raise<RegistryRequestException>(
            u"Registry::setValue(): Call to RegCreateKeyEx(%s) failed with result of %ld (0x%lx).\r\n", keyPath, result,
            result);
    if (LSTATUS result = key.set(name, type, bytes); result != ERROR_SUCCESS)
        raise<RegistryRequestException>(
            u"Registry::setValue(): Call to RegSetValueEx(%s) failed with result of %ld (0x%lx).\r\n", name, result,
            result);
}

void Registry::setLongValue(const std::u16string& keyPath, const std::u16string& name, std::int32_t value) const {
    setValue(keyPath, name, REG_DWORD, ByteBuffer(value));
}

void Registry::setStringValue(const std::u16string& keyPath, const std::u16string& name,
                              const std::u16string& text) const {
    setValue(keyPath, name, REG_SZ, ByteBuffer(text));
}
