// `zof design`: serves a page on which a project is drawn by the runtime and edited.
#ifndef DESIGN_H
#define DESIGN_H

#include <string>

#include "zof_lib/zof_type.h"

struct design_options_t {
    std::string dir;  // the project folder, or the one that its res is in
    std::string page; // a folder with the page's files, for those who work on the page; empty for the built-in ones
    std::string catalogue; // as JSON
    u32 port = 0;          // 0 for any free one
    bool open = false, loud = false;
};

// Serves until the process is ended. Returns an exit status after an error.
int design_run(const design_options_t &options);

#endif
