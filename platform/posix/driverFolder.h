// Where this library lies, and with it the driver's files: <prefix>/lib/kolma/3.
#pragma once

#include <string>

std::string driverFolder();
