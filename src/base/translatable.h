// Marks a text of the logic for translators. The logic says it in English whatever the language is, as JSON, logs and
// the command line want it; the window that shows it looks the translation up under the context named here.
#pragma once

#define TV_TEXT(context, text) text
