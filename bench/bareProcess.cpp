// Starts and ends: what the system itself takes for a process of kolma's linkage.
#include "platform/types.h"

int main() { return static_cast<int>(GetLastError()); }
