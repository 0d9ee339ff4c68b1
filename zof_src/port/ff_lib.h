// FFmpeg's libraries, which are opened with the first clip, compressed sound or JPEG picture. They pull in a hundred
// others, which would more than double the start-up time of a panel. All calls go through the one table that is filled
// in then: ff.avcodec_open2(...). Internal to the port.
#ifndef FF_LIB_H
#define FF_LIB_H

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/pixdesc.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

// The functions of each library that are used.
// clang-format off
#define FF_AVUTIL(X) X(av_channel_layout_default) X(av_dict_free) X(av_dict_set_int) X(av_frame_alloc) \
    X(av_frame_free) X(av_frame_move_ref) X(av_frame_unref) X(av_free) X(av_freep) X(av_log_set_level) X(av_malloc) \
    X(av_pix_fmt_desc_get) X(av_rescale_q)
#define FF_AVCODEC(X) X(av_packet_alloc) X(av_packet_free) X(av_packet_unref) X(avcodec_alloc_context3) \
    X(avcodec_find_decoder) X(avcodec_flush_buffers) X(avcodec_free_context) X(avcodec_open2) \
    X(avcodec_parameters_to_context) X(avcodec_receive_frame) X(avcodec_send_packet)
#define FF_AVFORMAT(X) X(av_find_best_stream) X(av_find_input_format) X(av_read_frame) X(av_seek_frame) \
    X(avformat_alloc_context) X(avformat_close_input) X(avformat_find_stream_info) X(avformat_open_input) \
    X(avio_alloc_context) X(avio_context_free)
#define FF_SWSCALE(X) X(sws_freeContext) X(sws_getContext) X(sws_scale)
#define FF_SWRESAMPLE(X) X(swr_alloc_set_opts2) X(swr_convert) X(swr_free) X(swr_init)
// clang-format on

struct ff_lib {
#define FF_SLOT(name) decltype(&::name) name;
    FF_AVUTIL(FF_SLOT) FF_AVCODEC(FF_SLOT) FF_AVFORMAT(FF_SLOT) FF_SWSCALE(FF_SLOT) FF_SWRESAMPLE(FF_SLOT)
#undef FF_SLOT
};
extern ff_lib ff;

// Opens the libraries at its first call; any thread. Returns false, and logs that once, when one is missing: then
// nothing in `ff` may be called.
bool ff_lib_open(void);

#endif
