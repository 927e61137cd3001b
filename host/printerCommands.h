// kolma printer: the local printers, which are the spooler's.
#pragma once

#include <string>

// Each raises a failure with words when the spooler refuses. The driver must be one of the table.
int addPrinter(std::u16string name, std::u16string driver);
int removePrinter(const std::u16string& name);

int listPrinters(bool json);
