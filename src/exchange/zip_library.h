#pragma once

#include <zip.h>

namespace exchange {

/// What is used of the library of archives, under its own names but for the prefix.
struct ZipLibrary {
  decltype(&zip_open) open;
  decltype(&zip_close) close;
  decltype(&zip_discard) discard;
  decltype(&zip_get_num_entries) get_num_entries;
  decltype(&zip_name_locate) name_locate;
  decltype(&zip_stat_init) stat_init;
  decltype(&zip_stat_index) stat_index;
  decltype(&zip_fopen_index) fopen_index;
  decltype(&zip_fread) fread;
  decltype(&zip_fclose) fclose;
  decltype(&zip_source_buffer) source_buffer;
  decltype(&zip_source_free) source_free;
  decltype(&zip_file_add) file_add;
  decltype(&zip_set_file_compression) set_file_compression;
};

/// Loaded by the first call, which throws std::runtime_error where the library is not installed.
const ZipLibrary& Zip();

}  // namespace exchange
