// All failures, each with its words; included more than once, so without a guard. A place further down in the program
// adds to its own section. Codes go over the bus by name: a name that was published keeps its meaning.

/* TRANSLATOR failures
   What the program says of its work, in alerts and in status lines. %1 to %9 stand for paths, numbers and the words of
   chrony or of the system; %c stands for another of these sentences, without its full stop. Sentences that begin in
   lower case follow a colon. */

// anything
TV_FAILURE(others_words, "%1") // for said_by_others
TV_FAILURE(system_error, "%1") // the number of an errno, shown as the system's words for it

// files
TV_FAILURE(cannot_read, TV_TEXT("failures", "Cannot read %1: %c."))
TV_FAILURE(cannot_write, TV_TEXT("failures", "Cannot write %1: %c."))
TV_FAILURE(cannot_rename, TV_TEXT("failures", "Cannot rename %1: %c."))
TV_FAILURE(cannot_lock, TV_TEXT("failures", "Cannot lock %1: %c."))
TV_FAILURE(cannot_make_folder, TV_TEXT("failures", "Cannot make the folder %1: %c."))
TV_FAILURE(cannot_flush_folder, TV_TEXT("failures", "Cannot flush the folder of %1: %c."))
TV_FAILURE(is_folder, TV_TEXT("failures", "it is a folder"))
TV_FAILURE(is_no_ordinary_file, TV_TEXT("failures", "it is not an ordinary file"))
TV_FAILURE(is_larger_than, TV_TEXT("failures", "it is larger than %1 bytes"))

// running programs

// settings

// chrony's reports and logs

// the configuration of chrony

// the list of servers

// the studies: logs, points, pictures

// the client of the root helper, and its jobs

// the root helper

// the tools that the root helper runs

// chronywake

// tickerctl

// windows
