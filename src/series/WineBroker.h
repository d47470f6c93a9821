#pragma once
// The request lines that aqwinctl.exe answers, one line each way; fields are separated
// by tabs, so paths may hold blanks.
//   create <command line> <folder>   -> process id, 0 when not created
//   find <class name>                -> window
//   active                           -> window
//   next <window> <command>          -> window
//   owner <window>                   -> process id, "-" when the window is unknown
//   send <window> <message> <wParam> <lParam> -> "done" once the window has dealt with it
//   end <process id> <grace in ms>   -> "1" once the process has gone, "0" when it is unknown
// Paths that begin with "/" are this system's and are turned into Wine's names inside.
namespace aq {
inline constexpr const char* kBrokerHello = "aqwinctl ready";
inline constexpr const char* kBrokerName = "aqwinctl.exe";
}  // namespace aq
