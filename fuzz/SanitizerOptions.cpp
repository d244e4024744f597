// What the sanitizers do otherwise while fuzzing than in the replays.

extern "C" const char *__asan_default_options();
extern "C" const char *__lsan_default_suppressions();

/// Short books of where each block was taken and given back: full ones take a tenth of the time.
/// ASAN_OPTIONS=malloc_context_size=30 tells more of a finding.
extern "C" const char *__asan_default_options() {
    return "malloc_context_size=4:quarantine_size_mb=64";
}

/// The fuzzer ends without a call of FuzzTargetEnd; what the font library keeps for the application
/// is left then.
extern "C" const char *__lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}
