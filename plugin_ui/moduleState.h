// What the module as a whole counts: living plug-in objects and locks of the server. While either is above zero the
// host must not unload the module.
#pragma once

#include "platform/types.h"

// One living object, for as long as it is a member.
class LiveObject {
public:
    LiveObject() noexcept;
    ~LiveObject();
    LiveObject(const LiveObject&) = delete;
    LiveObject& operator=(const LiveObject&) = delete;
};

void lockServer() noexcept;
void unlockServer() noexcept;

bool isModuleInUse() noexcept;
