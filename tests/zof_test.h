// Included by every test program.
#ifndef ZOF_TEST_H
#define ZOF_TEST_H

#include <doctest/doctest.h>

#include "zof.h"

#endif
