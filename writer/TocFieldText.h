#pragma once

#include "QdxString.h"

#include <string>
#include <string_view>

/// Tells whether a byte is the first of a two-byte character in the ANSI code page.
using LeadByteTest = bool (*)(unsigned char byte);

/// The text of the TC field that marks an entry of the table of contents:
/// the entry in double quotes, `\fC` (it belongs to table C) and `\l` with the level in double quotes.
///
/// The text has at most 1,007 bytes. A longer entry is cut so that the switches stay whole, and never in the
/// middle of a character.
QdxString tocFieldText(const QdxString& entry, int level, LeadByteTest isLeadByte);
