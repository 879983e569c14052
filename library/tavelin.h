// The whole public library.

#pragma once

#include "config/xml_document.h"
#include "files/essentials.h"
#include "files/text_files.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "math/quick_sort.h"
#include "math/scalars.h"
#include "records/element_set.h"
#include "records/enumerations.h"
#include "records/mark.h"
#include "records/track.h"
#include "results/code_table.h"
#include "results/result.h"
#include "results/result_files.h"
#include "text/angle_text.h"
#include "text/bad_areas.h"
#include "text/calendar.h"
#include "text/date_text.h"
#include "text/number_text.h"
