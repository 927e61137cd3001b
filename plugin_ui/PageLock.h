#pragma once

// The page of the document's sheet, as far as the host's own page may lock it.
class PageLock {
public:
    // Read-only on and off; nothing happens where no page is.
    virtual void lockPage() = 0;
    virtual void unlockPage() = 0;

protected:
    ~PageLock() = default;
};
