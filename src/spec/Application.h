// What the program sets up once, between the application object and the main window. Shared with
// the programs that drive the real window, so that they run under the same rules.
#pragma once

/// Names the application and its desktop entry, gives its windows their icon, sets the dialogs'
/// settings key, the language and the decimal separator of the user's locale, shows the model's
/// messages in message boxes, and ends the program with its last window. Needs the application
/// object.
void SetUpApplication();
