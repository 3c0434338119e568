// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

namespace tavrin {

struct CommandLine;
class Preferences;

/// Opens the one datafile read-only, with nobody's preferences, in a window; writes a picture of it once it
/// is laid out. The program's exit code: 0, or 1 with a message when the datafile or the picture was refused.
int takeScreenshot(const CommandLine &line);

} // namespace tavrin
