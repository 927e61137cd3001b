// The system's printing library on an equal task: a printer of 100 options with 200 constraints, and a job of 60
// choices of which some cannot be.
#pragma once

#include <cstddef>

// Marks the job's choices, asks for the conflicts, and has them resolved. Returns how many options the resolved job
// has.
std::size_t markAndResolveJob();
