#include "system/NtFamily.h"

bool IsNtFamily() {
    return false;
}
