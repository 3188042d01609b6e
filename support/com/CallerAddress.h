#pragma once

// Who called the function in which MIROVEL_CALLER_ADDRESS stands. MIROVEL_NOT_INLINED goes in front of the
// definition of such a function when our own code calls it, too: inlined, it would name its caller's caller.
#ifdef _MSC_VER
#include <intrin.h>
#define MIROVEL_CALLER_ADDRESS _ReturnAddress()
#define MIROVEL_NOT_INLINED __declspec(noinline)
#else
#define MIROVEL_CALLER_ADDRESS __builtin_return_address(0)
#define MIROVEL_NOT_INLINED [[gnu::noinline]]
#endif
