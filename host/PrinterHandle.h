// A printer that is open, closed with the object.
#pragma once

#include "platform/types.h"

#include <string>

class PrinterHandle {
public:
    // Raises InvalidPrinterHandleException, with words, when there is no printer of that name or it cannot be opened.
    explicit PrinterHandle(std::u16string name);
    ~PrinterHandle();
    PrinterHandle(const PrinterHandle&) = delete;
    PrinterHandle& operator=(const PrinterHandle&) = delete;

    HANDLE get() const noexcept { return handle_; }

private:
    HANDLE handle_ = nullptr;
};
