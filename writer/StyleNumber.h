#pragma once

#include "QdxString.h"

/// The decimal number at the end of a style's name: what follows its first characters, as many as `prefix`
/// has, read as `atoi` does; 0 when no digits follow. That those characters are the prefix is not checked:
/// with "Heading " the name "My style12" gives 12, and documents in use depend on it.
int styleNumber(const QdxString& prefix, const QdxString& styleName);
