#pragma once

// Marks what a library offers to others. Everything else stays hidden, so that three libraries
// that are loaded at run time share exactly the symbols that they mean to share.
#define KIV_EXPORT __attribute__((visibility("default")))
