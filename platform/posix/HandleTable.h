// Handles that are checked: a handle is a number that means something in this table only. It is never an address and
// never given out twice, so a stale, foreign or invented one is refused and nothing is dereferenced.
#pragma once

#include "platform/posix/service.h"

#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

enum class HandleKind : ULONG_PTR {
    file = 1,
    token,
    heap,
    key,
    printer,
    module,
    icon,
    imageList,
    gdiObject,
    deviceContext,
    window,
    timer
};

template <typename Object, typename Handle = HANDLE>
class HandleTable {
public:
    explicit HandleTable(HandleKind kind) : kind_(kind) {}

    Handle add(std::shared_ptr<Object> object) {
        std::lock_guard lock(mutex_);
        ULONG_PTR number = (last_ + 1) << 8U | static_cast<ULONG_PTR>(kind_) << 3U;
        auto handle = reinterpret_cast<Handle>(number); // NOLINT
        objects_.emplace(handle, std::move(object));
        ++last_;
        return handle;
    }

    // Null for what is no handle of this table.
    std::shared_ptr<Object> lookUp(Handle handle) const {
        std::lock_guard lock(mutex_);
        auto at = objects_.find(handle);
        return at == objects_.end() ? nullptr : at->second;
    }

    // Fails with ERROR_INVALID_HANDLE.
    std::shared_ptr<Object> get(Handle handle) const {
        auto object = lookUp(handle);
        require(object != nullptr, ERROR_INVALID_HANDLE);
        return object;
    }

    // How many handles mean something.
    std::size_t size() const {
        std::lock_guard lock(mutex_);
        return objects_.size();
    }

    // Takes the handle out. Null for what is no handle of this table.
    std::shared_ptr<Object> remove(Handle handle) {
        std::lock_guard lock(mutex_);
        auto node = objects_.extract(handle);
        return node.empty() ? nullptr : std::move(node.mapped());
    }

private:
    const HandleKind kind_;
    mutable std::mutex mutex_;
    std::map<Handle, std::shared_ptr<Object>> objects_;
    ULONG_PTR last_ = 0;
};

// The one table of a kind. It is never destroyed: handles are still closed while the process ends.
template <HandleKind kind, typename Object, typename Handle = HANDLE>
HandleTable<Object, Handle>& handleTable() {
    static auto* table = new HandleTable<Object, Handle>(kind);
    return *table;
}
