#include "multi_report.h"

#include "results/code_table.h"

tavelinUtils::TFuncRes CreateMultiReport(const tavelinUtils::TConvMea& task)
{
    return tavelinUtils::GetErrCode(3, task.inputformat);
}
