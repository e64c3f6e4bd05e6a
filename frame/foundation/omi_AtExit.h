#ifndef omi_AtExit_h
#define omi_AtExit_h

/// Has `release` called when the library is unloaded or the process ends, after the library's own stop: the place where
/// the foundation's singletons are freed. Function-local statics and atexit would run before that stop.
///
/// Releases run in the reverse order of their first registration; a second registration of the same function counts
/// as none. A release must leave its owner so that a later access makes (and registers) a new object. Never fails,
/// never allocates, and works before any initialiser has run. There is room for 32 functions; more end the process.
void omi_freeAtUnload(void (*release)()) noexcept;

/// Calls the registered functions and forgets them. The unload does this by itself, but on Windows, where the library's
/// entry point calls it.
void omi_freeAll() noexcept;

#endif
