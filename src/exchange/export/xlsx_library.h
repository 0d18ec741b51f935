#pragma once

#include <xlsxwriter.h>

namespace exchange {

/// What is used of the library that writes workbooks, under its own names.
struct XlsxLibrary {
  decltype(&::workbook_new_opt) workbook_new_opt;
  decltype(&::workbook_close) workbook_close;
  decltype(&::workbook_add_worksheet) workbook_add_worksheet;
  decltype(&::workbook_add_format) workbook_add_format;
  decltype(&::format_set_num_format) format_set_num_format;
  decltype(&::format_set_bold) format_set_bold;
  decltype(&::format_set_border) format_set_border;
  decltype(&::format_set_bottom) format_set_bottom;
  decltype(&::worksheet_set_column) worksheet_set_column;
  decltype(&::worksheet_freeze_panes) worksheet_freeze_panes;
  decltype(&::worksheet_write_string) worksheet_write_string;
  decltype(&::worksheet_write_number) worksheet_write_number;
  decltype(&::worksheet_write_boolean) worksheet_write_boolean;
};

/// Loaded by the first call, which throws std::runtime_error where the library is not installed.
const XlsxLibrary& Xlsx();

}  // namespace exchange
