// The model's one way to tell the user something without failing: a message hook.
// The program sets it to a plain message box; tests set a recorder.
#pragma once

#include <functional>
#include <string>

using TMessageHook = std::function<void(const std::string &text)>;

/// Replaces the thread's hook and returns the old one. An empty hook swallows messages.
TMessageHook SetMessageHook(TMessageHook hook);

/// Shows `text` (UTF-8) through the hook; returns after the user has seen it.
void ShowModelMessage(const std::string &text);
