// Tokens of the process: handles that stand for its user.
#pragma once

#include "platform/posix/HandleTable.h"

struct ProcessToken {
    DWORD access;
};

inline HandleTable<ProcessToken>& processTokens() { return handleTable<HandleKind::token, ProcessToken>(); }
