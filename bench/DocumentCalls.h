#pragma once

/// Prints for whole documents how many calls Word receives from each writer, counted from the transcript of
/// the Word stand-in, and how long they take with it in this process.
void printDocumentCalls();
