#include "exchange/export/xlsx_library.h"

#include "loader/late_library.h"

namespace exchange {
namespace {

XlsxLibrary Load() {
  const loader::LateLibrary file(XLSXWRITER_LIBRARY);
  return {
      .workbook_new_opt = file.Find<decltype(::workbook_new_opt)>("workbook_new_opt"),
      .workbook_close = file.Find<decltype(::workbook_close)>("workbook_close"),
      .workbook_add_worksheet = file.Find<decltype(::workbook_add_worksheet)>("workbook_add_worksheet"),
      .workbook_add_format = file.Find<decltype(::workbook_add_format)>("workbook_add_format"),
      .format_set_num_format = file.Find<decltype(::format_set_num_format)>("format_set_num_format"),
      .format_set_bold = file.Find<decltype(::format_set_bold)>("format_set_bold"),
      .format_set_border = file.Find<decltype(::format_set_border)>("format_set_border"),
      .format_set_bottom = file.Find<decltype(::format_set_bottom)>("format_set_bottom"),
      .worksheet_set_column = file.Find<decltype(::worksheet_set_column)>("worksheet_set_column"),
      .worksheet_freeze_panes = file.Find<decltype(::worksheet_freeze_panes)>("worksheet_freeze_panes"),
      .worksheet_write_string = file.Find<decltype(::worksheet_write_string)>("worksheet_write_string"),
      .worksheet_write_number = file.Find<decltype(::worksheet_write_number)>("worksheet_write_number"),
      .worksheet_write_boolean = file.Find<decltype(::worksheet_write_boolean)>("worksheet_write_boolean"),
  };
}

}  // namespace

const XlsxLibrary& Xlsx() {
  static const XlsxLibrary library = Load();
  return library;
}

}  // namespace exchange
