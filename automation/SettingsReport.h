#pragma once

struct DocSession;

/// Tells the settings in force, each with where it came from, and those whose values cannot be of their kind.
void tellSettings(DocSession& session) noexcept;
