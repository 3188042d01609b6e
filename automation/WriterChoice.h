#pragma once

#include <memory>

class DocumentWriter;
class SettingsRecord;
class Trace;
class WriterEvents;

/// The writer that the settings ask for ("Word"/"Compose": 0 the counting one, 1 the composing one with typed
/// calls, 2 the composing one with fragments; any other number counts as 0). `trace` and `events` are the
/// session's and outlive it.
std::unique_ptr<DocumentWriter> chooseWriter(const SettingsRecord& settings, const Trace& trace,
                                             WriterEvents* events = nullptr);
