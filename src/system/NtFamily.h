// Which family of systems this one belongs to.
#pragma once

/// Whether this is a system of the NT family.
bool IsNtFamily();
