// The output of `zof check` and `zof lint`.
#ifndef ZOF_FINDINGS_H
#define ZOF_FINDINGS_H

#include "check/zof_check.h"

// Prints the findings as lines with their count, or as JSON. `folder` ends in "/"; `strict` reports warnings as errors.
void findings_print(const char *folder, const zof_check_t &check, bool json, bool strict);

// Prints a list of rules, which a rule without a name terminates.
void rules_print(const zof_check_rule_t *rule);

#endif
