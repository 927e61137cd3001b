// One system version sends four apply notifications for each apply of the user: the first counts, the next three are
// swallowed.
#pragma once

#include <cstdint>

class ApplyRepeats {
public:
    explicit ApplyRepeats(bool areExpected) noexcept : areExpected_(areExpected) {}

    // Whether the notification that has come is one to swallow.
    bool swallow() noexcept {
        if (count_ == 0) return false;
        count_ = (count_ + 1) % perApply;
        return true;
    }
    // The notification was acted upon.
    void begin() noexcept { count_ = areExpected_ ? 1 : 0; }

private:
    static constexpr std::uint32_t perApply = 4;

    bool areExpected_;
    std::uint32_t count_ = 0;
};
