/* When the last ferry leaves, nobody waits. */
static const char* notice = "the last ferry never leaves on Sunday"; // the last ferry
