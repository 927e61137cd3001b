#include "tests/serviceDoubles.h"

#include <dlfcn.h>

namespace {

template <typename Function>
Function platforms(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

#define SERVICE_DOUBLE(Result, Name, Parameters, Arguments)                                                            \
    std::function<Result Parameters> doubles::Name;                                                                    \
    Result Name Parameters {                                                                                           \
        if (doubles::Name) return doubles::Name Arguments;                                                             \
        static auto* real = platforms<Result(*) Parameters>(#Name);                                                    \
        return real Arguments;                                                                                         \
    }
SERVICE_DOUBLES(SERVICE_DOUBLE)
