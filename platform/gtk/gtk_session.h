// The GTK session of the library: GTK is started lazily, at the first window the
// library shows, and only when a display can be opened. The host's locale is left
// alone (GTK would otherwise set LC_ALL from the environment), and without a display
// nothing is printed: the caller falls back to the scripted driver.
//
// GTK is used from the thread that started the session only.
#pragma once

#include <functional>

namespace tabra::gtk {

// Starts GTK once; true when a display is open. Later calls answer the first result
// (a session that found no display does not try again).
bool startSession();
// True once GTK was initialised in this process by the library (tests check that the
// scripted choice never touched GTK).
bool sessionStarted();

// Handles the events that are already waiting, at most `limit` of them; never blocks.
void pumpEvents(int limit = 200);
// Handles events, sleeping briefly between rounds, until done() answers true or
// `milliseconds` passed. Used where a window must be on screen before the caller goes
// on (a progress window, a notice) and nothing else would run the event loop.
void pumpUntil(const std::function<bool()> &done, int milliseconds);

// Makes the display server carry out what was asked (windows destroyed or hidden go
// away at once) without handling any input.
void flushDisplay();

} // namespace tabra::gtk
