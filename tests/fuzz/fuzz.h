// What every fuzzer shares. Each file *_fuzz.cpp is one: it takes any bytes and must neither crash, hang nor leak.
// Built by clang it is a program that looks for such bytes (./test fuzz); built by the tests it replays its seeds and
// all inputs that ever made it fail.
#ifndef FUZZ_H
#define FUZZ_H

#define DOCTEST_CONFIG_DISABLE // the fixtures of the tests are used, their checks are not

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "zof.h"

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

// What is left of an input.
struct fuzz_input {
    const u8 *at;
    size_t size;
};

inline u8 fuzz_byte(fuzz_input &in) {
    if (in.size == 0) {
        return 0;
    }
    in.size--;
    return *in.at++;
}

// The next bytes in a block of their own size, so that a look beyond them is seen.
inline std::vector<u8> fuzz_bytes(fuzz_input &in, size_t size) {
    const size_t n = size < in.size ? size : in.size;
    std::vector<u8> out(in.at, in.at + n);
    in.at += n;
    in.size -= n;
    return out;
}

// Looks at every byte, so that one that is not there is seen.
inline void fuzz_read(const u8 *data, size_t size) {
    static volatile u8 sum;
    for (size_t i = 0; i < size; i++) {
        sum = (u8)(sum + data[i]);
    }
}

// The runtime tells every fault of its input: not here.
inline void fuzz_quiet() {
    if (!getenv("ZOF_FUZZ_LOUD") && !freopen("/dev/null", "w", stdout)) {
        abort();
    }
}

// Stops as a fault does. For rules that no sanitizer knows.
inline void fuzz_must(bool holds, const char *rule) {
    if (!holds) {
        fprintf(stderr, "broken: %s\n", rule);
        abort();
    }
}

#endif
