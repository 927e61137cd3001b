// The job ticket: attributes stand in two groups under the root, each made when it is first needed.
#pragma once

#include "jtcore/JtifParse/KolmaDomDoc.h"

class JtifDomDoc final : public KolmaDomDoc {
public:
    JtifDomDoc(std::u16string bufferId, bool validate);

protected:
    std::string_view getTemplate() const noexcept override;
    // Raises parse code 7 for an id that belongs to neither group.
    DomElement& getParentNode(DomDocument& document, DomElement& root, const AttrNode& node) override;
    bool isContainerNode(const DomElement& element) const override;

private:
    DomElement* operationGroup_ = nullptr;
    DomElement* jobTemplateGroup_ = nullptr;
};
