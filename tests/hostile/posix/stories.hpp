#pragma once

namespace kestra::hostile {

// Every argument of every export, each hostile value in its place: with a printer and without.
void ArgumentsWithAPrinter();
void ArgumentsWithoutAPrinter();

// The same from a host that stops at each floating-point fault.
void ArgumentsWithTraps();

// Every export from within each kind of dialog, and from another thread meanwhile.
void CallsFromWithin();

// Hosts that leave the process otherwise than a library would like to find it.
void StandardStreamsClosed();
void SignalsAllTheTime();
void SmallStacks();
void NoDescriptorsLeft();
void NoCurrentDirectory();

}  // namespace kestra::hostile
