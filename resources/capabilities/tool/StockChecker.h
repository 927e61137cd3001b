// The stocks that a printer lists: each must be one that it prints on.
#pragma once

#include "resources/capabilities/tool/checkCapabilities.h"

#include <string>

class StockChecker {
public:
    StockChecker(const ComposedData& data, FaultList& faults) : data_(data), faults_(&faults) {}

    void check();

private:
    void checkStock(const ListedStock& stock);
    void checkMember(const ListedStock& stock, const AttrNode& member);
    void checkTold(const ListedStock& stock);
    void checkColor(const ListedStock& stock);
    void checkNames();
    void fault(const std::string& key, const std::string& text);

    ComposedData data_;
    FaultList* faults_;
};
