#include "system/NtFamily.h"

bool IsNtFamily() {
    return true; // no other can run this program
}
