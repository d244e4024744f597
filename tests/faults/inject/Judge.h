// What the interposed calls ask the injection in force. Inside the library only.
#pragma once

#include "inject/FaultInjection.h"

/// Whether a call on this name, or on this descriptor, is one to be judged.
bool ConcernsPath(const char *path);
bool ConcernsDescriptor(int descriptor);

/// Notes that a descriptor belongs, or no longer belongs, to a watched file.
void Watch(int descriptor, bool on);

/// Counts a call that is concerned; the fault to inject into it, or nothing.
const TFault *Judge(TCall call);

/// Runs what a late call waits for.
void RunMeanwhile(const TFault &fault);
