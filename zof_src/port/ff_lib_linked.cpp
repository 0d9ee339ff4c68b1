// FFmpeg's libraries as part of the program, for systems whose programs contain all of their libraries.
#include "port/ff_lib.h"

#define FF_ADDRESS(name) &name,
ff_lib ff = {FF_AVUTIL(FF_ADDRESS) FF_AVCODEC(FF_ADDRESS) FF_AVFORMAT(FF_ADDRESS) FF_SWSCALE(FF_ADDRESS)
                 FF_SWRESAMPLE(FF_ADDRESS)};
#undef FF_ADDRESS

bool ff_lib_open(void) {
    static const bool quiet = [] {
        ff.av_log_set_level(AV_LOG_QUIET);
        return true;
    }();
    return quiet;
}
