#include "embedded/storage/file_system.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

namespace embedded {
namespace {

// As the kernel's interface numbers them.
constexpr std::array<unsigned long, 7> kNetworkMagics = {
    0x6969,      // NFS
    0x517B,      // SMB
    0xFF534D42,  // CIFS
    0xFE534D42,  // SMB 2 and 3
    0x564C,      // NCP
    0x5346414F,  // AFS
    0x73757245,  // Coda
};
constexpr unsigned long kFuseMagic = 0x65735546;

/// The type of what is mounted under a device number; empty when it isn't told.
std::string MountedType(dev_t device) {
  const std::string wanted = std::to_string(major(device)) + ':' + std::to_string(minor(device));
  std::ifstream mounts("/proc/self/mountinfo");
  for (std::string line; std::getline(mounts, line);) {
    std::istringstream words(line);
    std::string id, parent, number, word;
    words >> id >> parent >> number;
    if (number != wanted) continue;
    while (words >> word && word != "-") {
    }
    words >> word;
    return word;
  }
  return {};
}

}  // namespace

FileSystem FileSystemOf(long magic) {
  const unsigned long number = static_cast<unsigned long>(magic) & 0xFFFFFFFF;  // some are taken as negative
  if (number == kFuseMagic) return FileSystem::kUserSpace;
  const bool network =
      std::find(kNetworkMagics.begin(), kNetworkMagics.end(), number) != kNetworkMagics.end();
  return network ? FileSystem::kNetwork : FileSystem::kLocal;
}

bool IsNetworkType(std::string_view type) {
  constexpr std::string_view kTypes[] = {"sshfs",  "smb",       "cifs",   "nfs",  "gvfs",    "davfs",
                                         "webdav", "curlftpfs", "rclone", "s3fs", "gluster", "kio"};
  return type.starts_with("fuse") && std::any_of(std::begin(kTypes), std::end(kTypes), [&](auto known) {
           return type.find(known) != std::string_view::npos;
         });
}

bool IsOnNetwork(const std::string& folder) {
  struct statfs system {};
  struct stat status {};
  if (statfs(folder.c_str(), &system) != 0 || stat(folder.c_str(), &status) != 0) return false;
  const FileSystem kind = FileSystemOf(static_cast<long>(system.f_type));
  return kind == FileSystem::kNetwork ||
         (kind == FileSystem::kUserSpace && IsNetworkType(MountedType(status.st_dev)));
}

}  // namespace embedded
