// A dialog template in memory, and the joining of several into one.
//
// Templates are data from outside: each is checked from front to end when it is loaded, and what lies, is cut short or
// has bytes where none belong is refused with ResourceAcquisitionException. What getResourceData() hands out is
// therefore whole. The plain form only (DLGTEMPLATE); the extended form is refused.
#pragma once

#include "jtcore/Services/ResourceData.h"

#include <vector>

class DialogResource : public ResourceData {
public:
    // As many as the header of a template can count.
    static constexpr std::size_t maximumItems = 65535;

    DialogResource() = default;
    // hidden: every item loses WS_VISIBLE.
    explicit DialogResource(std::uint16_t resourceId, bool hidden = false);

    // Header and items; 0 when nothing is loaded.
    std::size_t getResourceSize() const override;
    // A complete template on a boundary of four bytes, good until the next call or change. Raises
    // ResourceAcquisitionException when nothing is loaded.
    const std::uint8_t* getResourceData() const override;
    // A template stays one, whatever is said here.
    void setResourceType(std::int32_t resourceType) override;
    // Checks the template and takes a copy, split into its items. When it is refused this resource is as it was.
    void resourceLoaded(std::int32_t resourceType, std::size_t size, const void* data) override;
    void reset(std::uint16_t resourceId) override;
    // Forgets what was loaded.
    virtual void resetDialog(std::uint16_t resourceId, bool hidden);

    // Appends the items of the other, whose header is dropped, and returns this resource. Without data this resource
    // becomes the other; without data or items the other changes nothing. Raises ExceededNumberOfDlgItems, and this
    // resource is as it was.
    DialogResource& operator+(const DialogResource& other);

    std::size_t getItemCount() const noexcept { return items_.size(); }

private:
    using Bytes = std::vector<std::uint8_t>;

    // The base keeps the header alone, up to the first item.
    std::vector<Bytes> items_;
    bool isHidden_ = false;
    mutable Bytes composed_;
};
