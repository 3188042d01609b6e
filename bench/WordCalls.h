#pragma once

/// Prints how many calls Word receives for each call of a client, counted from the transcript of the Word
/// stand-in.
void printWordCalls();
