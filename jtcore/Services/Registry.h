// Named values of the user's own part of the registry (HKEY_CURRENT_USER). Stateless: each operation goes to the store.
#pragma once

#include "jtcore/Services/ByteBuffer.h"
#include "platform/types.h"

#include <cstdint>
#include <string>

class Registry {
public:
    // A larger value is none of ours, and is refused before memory is taken for it.
    static constexpr std::size_t maximumSize = 1024U * 1024;

    // The value's bytes in `out`; true when there are any. A missing key or value empties `out`. Raises
    // RegistryRequestException.
    bool getValue(const std::u16string& keyPath, const std::u16string& name, ByteBuffer& out) const;

    // The value, or the fallback when there is none or it is empty. Raises RegistryRequestException and, for a value
    // of fewer than four bytes, NotEnoughBytesForDesiredDataTypeException.
    std::int32_t getLongValue(const std::u16string& keyPath, const std::u16string& name, std::int32_t fallback) const;

    // The text, or the fallback when there is none. Terminators that another program stored with the text are cut
    // off. Raises RegistryRequestException.
    std::u16string getStringValue(const std::u16string& keyPath, const std::u16string& name,
                                  const std::u16string& fallback) const;

    // True when the value is there, be it empty. Never raises for what the store says.
    bool hasValue(const std::u16string& keyPath, const std::u16string& name) const;

    // The key is created when it is not there. Each raises RegistryRequestException.
    void setValue(const std::u16string& keyPath, const std::u16string& name, DWORD type, const ByteBuffer& bytes) const;
    void setLongValue(const std::u16string& keyPath, const std::u16string& name, std::int32_t value) const;
    // Stored without a terminator.
    void setStringValue(const std::u16string& keyPath, const std::u16string& name, const std::u16string& text) const;
};
