#pragma once

#include <string>
#include <string_view>

namespace embedded {

/// What kind of file system a number of statfs names.
enum class FileSystem { kLocal, kNetwork, kUserSpace };
FileSystem FileSystemOf(long magic);

/// True when a type of a mounted file system in user space ("fuse.sshfs") reaches over the network.
bool IsNetworkType(std::string_view type);

/// True when a folder lies on another machine, where programs don't see each other's log.
bool IsOnNetwork(const std::string& folder);

}  // namespace embedded
