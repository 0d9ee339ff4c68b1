// Child processes, and the streams and the memory shared with them, for tools: stream_posix.cpp and stream_win32.cpp.
// Only stream_wait and child_end wait. All calls for a stream must come from one thread.
#ifndef STREAM_H
#define STREAM_H

#include <cstdio>
#include <string>
#include <vector>

#include "zof_lib/zof_type.h"

// One end of a pipe, or a connection.
struct stream_t;

// Connects to a port on 127.0.0.1. Returns null on failure; zof_file_error says why.
stream_t *stream_connect(u32 port);
void stream_close(stream_t *stream); // null is ignored

// Read returns the number of bytes, 0 when none have arrived, -1 when the other end is closed. Write returns the number
// of bytes that were taken, 0 when there is no room, -1 when nobody will read them.
s32 stream_read(stream_t *stream, void *out, u32 size);
s32 stream_write(stream_t *stream, const void *data, u32 size);

// A stream for stream_wait that any thread can make readable, without waiting, until it is cleared.
stream_t *stream_wake_make();
void stream_wake(stream_t *stream);
void stream_wake_clear(stream_t *stream);

// Waits until one of the streams can be read, or written, or something has happened to `other`, which is a handle of
// the system (-1 for none), for at most `ms`.
struct stream_wait_t {
    stream_t *stream;
    bool write;
};
void stream_wait(const std::vector<stream_wait_t> &streams, intptr_t other, s32 ms);

// Memory that a child fills and its parent reads.
struct shared_t {
    intptr_t handle;  // 0 for none
    std::string name; // for the child
    const void *map;  // null until the child has made it
    size_t size;
};
// Returns false on failure.
bool shared_start(shared_t *shared);
// Maps the memory when the child has made it. Returns it, or null before.
const void *shared_map(shared_t *shared);
void shared_stop(shared_t *shared);
// In the child: makes the memory, which stays until the process ends. Returns null on failure.
void *shared_create(const char *name, size_t size);

struct child_t {
    intptr_t process;         // its process id on POSIX, its handle on Windows; 0 if none runs
    stream_t *input, *output; // our ends of its standard input and output
};

// Starts a program, which is searched in PATH if its name has no folder. It can open `shared`, which may be null. Its
// error stream is ours, or discarded if `quiet`. Returns an error, or an empty text.
std::string child_start(child_t *child, const std::vector<std::string> &words, const shared_t *shared, bool quiet);

// Waits until the program ends. Returns its exit status, -1 if it was ended from outside; `text` says it in words,
// "status 3" or "signal 11".
s32 child_end(child_t *child, std::string *text);

// Ends the program if it runs, and closes its streams.
void child_kill(child_t *child);

// Starts an editor on a line of a file, from a command such as "code" or "emacs -nw", without waiting for it.
void editor_start(const std::string &command, const std::string &file, s32 line);

// Opens an address in the user's browser, without waiting for it.
void browser_open(const std::string &address);

// Returns a stream to the standard output, for a protocol; what is printed from then on goes to the error stream.
FILE *output_take();

// Sets a variable of this process and its children. Only before other threads run. The value must not be empty.
void variable_set(const char *name, const char *value);

#endif
