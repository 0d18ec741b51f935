#pragma once

#include <optional>

#include "exchange/export/export_table.h"
#include "exchange/plan/import_plan.h"

namespace exchange {

/// The rows of a plan with their states and reasons, all or those of one state, as a table on its way out.
ExportTable PreviewTable(const ImportPlan& plan, std::optional<RowState> only = {});

}  // namespace exchange
