// The public face of the runtime: every public header. C and C++.
#ifndef ZOF_H
#define ZOF_H

#include "zof_lib/dblist/db_list.h"
#include "zof_lib/zof_cson.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_task.h"
#include "zof_lib/zof_type.h"
#include "zof_lib/zof_util.h"

#include "drv/zof_drv.h"
#include "drv/zof_drv_beep.h"
#include "drv/zof_drv_disp.h"
#include "drv/zof_drv_file.h"
#include "drv/zof_drv_gpio.h"
#include "drv/zof_drv_rtc.h"
#include "drv/zof_drv_touch.h"
#include "drv/zof_drv_uart.h"
#include "drv/zof_drv_wdt.h"
#include "drv/zof_pipo_buff.h"

#include "project/zof_ctrl_attr.h"
#include "project/zof_event.h"
#include "project/zof_font.h"
#include "project/zof_j2s.h"
#include "project/zof_lang.h"
#include "project/zof_para.h"
#include "project/zof_prj.h"
#include "project/zof_prj_attr.h"
#include "project/zof_res.h"
#include "project/zof_style.h"
#include "project/zof_ver.h"
#include "project/zof_view.h"

#include "control/zof_ctrl.h"
#include "control/zof_ctrl_create.h"
#include "control/zof_image.h"
#include "control/zof_list.h"
#include "control/zof_table_chart.h"
#include "control/zof_text.h"
#include "control/zof_value.h"
#include "control/zof_scrollcont.h"

#include "func/zof_func.h"
#include "func/zof_dir_copy.h"
#include "func/zof_func_stdby.h"
#include "func/zof_func_update.h"
#include "hmi/zof_hmi.h"
#include "hmi/zof_hmi_analys.h"
#include "hmi/zof_hmi_cmd.h"
#include "hmi/zof_hmi_codec.h"
#include "hmi/zof_hmi_frame.h"
#include "hmi/zof_hmi_sync.h"
#include "hmi/zof_hmi_tone.h"

#include "zof_start.h"

#endif
