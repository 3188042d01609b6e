#pragma once

#include "CComModule.h"

#include <span>

/// The classes of this module. The one table drives class objects, registration and unregistration.
std::span<ObjectMapEntry> classMap() noexcept;
