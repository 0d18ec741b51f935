#include "exchange/zip_library.h"

#include "loader/late_library.h"

namespace exchange {
namespace {

ZipLibrary Load() {
  const loader::LateLibrary file(ZIP_LIBRARY);
  return {
      .open = file.Find<decltype(zip_open)>("zip_open"),
      .close = file.Find<decltype(zip_close)>("zip_close"),
      .discard = file.Find<decltype(zip_discard)>("zip_discard"),
      .get_num_entries = file.Find<decltype(zip_get_num_entries)>("zip_get_num_entries"),
      .name_locate = file.Find<decltype(zip_name_locate)>("zip_name_locate"),
      .stat_init = file.Find<decltype(zip_stat_init)>("zip_stat_init"),
      .stat_index = file.Find<decltype(zip_stat_index)>("zip_stat_index"),
      .fopen_index = file.Find<decltype(zip_fopen_index)>("zip_fopen_index"),
      .fread = file.Find<decltype(zip_fread)>("zip_fread"),
      .fclose = file.Find<decltype(zip_fclose)>("zip_fclose"),
      .source_buffer = file.Find<decltype(zip_source_buffer)>("zip_source_buffer"),
      .source_free = file.Find<decltype(zip_source_free)>("zip_source_free"),
      .file_add = file.Find<decltype(zip_file_add)>("zip_file_add"),
      .set_file_compression = file.Find<decltype(zip_set_file_compression)>("zip_set_file_compression"),
  };
}

}  // namespace

const ZipLibrary& Zip() {
  static const ZipLibrary library = Load();
  return library;
}

}  // namespace exchange
