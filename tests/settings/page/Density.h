#pragma once

/// The dots per inch that this process was started for; 96 unless it was said.
int wantedDensity();
