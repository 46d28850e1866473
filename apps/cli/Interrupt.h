// SPDX-License-Identifier: MIT
#pragma once

/// SIGINT, SIGTERM and SIGHUP end the work at the next chance, so that nothing half-written stays;
/// a second one ends the program at once. A closed pipe
/// and a file that grows too large are errors to a writer, not signals.
namespace interrupt {

/// To be called once, at the start of the program.
void Install();
/// The signal that asks for the end; 0 = none.
int getSignal();
/// The program ends well on that signal: what it was doing has no other end.
void Accept();
/// Ends the program by that signal, as callers of the program expect. Does nothing without one.
void Finish();

}  // namespace interrupt
