// The user's name and folders, in the bytes of this platform. No variable or file of this system's own is asked.
#pragma once

#include <string>

// Empty when nothing knows it.
std::string userName();
// Fails with ERROR_PATH_NOT_FOUND when nothing knows it.
std::string homeFolder();
// Where this system keeps the user's preferences, and the printers.
std::string configurationFolder();
std::string dataFolder();
