// A value that is a list of attribute nodes: the elements of a "1setOf", or the members of a collection.
#pragma once

#include "jtcore/Attributes/AttrNodeList.h"
#include "jtcore/Attributes/AttrValue.h"

class IppList final : public AttrValue {
public:
    // The syntax name is kept as given, whatever it is. Each list is copied or taken over whole.
    explicit IppList(std::u16string_view syntaxName) : AttrValue(AVTE::list), syntaxName_(syntaxName) {}
    IppList(const AttrNodeList& list, std::u16string_view syntaxName);
    IppList(AttrNodeList&& list, std::u16string_view syntaxName);

    const AttrNodeList& getList() const noexcept { return list_; }
    AttrNodeList& getList() noexcept { return list_; }

    std::u16string_view getSyntaxName() const noexcept override { return syntaxName_.text(); }
    std::u16string getIppValue() const override { return {}; }
    void setIppValue(std::u16string_view) override {}
    std::unique_ptr<AttrValue> clone() const override { return std::make_unique<IppList>(*this); }
    bool equals(const AttrValue& other) const override;

private:
    SyntaxName syntaxName_;
    AttrNodeList list_;
};
