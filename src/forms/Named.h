// Object names: what a control is called in the program, by which tests and tools find it.
#pragma once

/// `control`, after it has got its name.
template <class TControl>
TControl *Named(const char *name, TControl *control) {
    control->setObjectName(name);
    return control;
}
