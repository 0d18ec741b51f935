#include "history/digest.h"

#include <openssl/evp.h>

#include <array>

#include "loader/late_library.h"

namespace history {
namespace {

struct DigestLibrary {
  decltype(&EVP_Digest) digest;
  decltype(&EVP_sha256) sha256;
};

DigestLibrary Load() {
  const loader::LateLibrary file(CRYPTO_LIBRARY);
  return {.digest = file.Find<decltype(EVP_Digest)>("EVP_Digest"),
          .sha256 = file.Find<decltype(EVP_sha256)>("EVP_sha256")};
}

}  // namespace

std::string Digest(const platform::Bytes& bytes) {
  static const DigestLibrary library = Load();
  constexpr char kDigits[] = "0123456789abcdef";
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned int length = 0;
  library.digest(bytes.data(), bytes.size(), digest.data(), &length, library.sha256(), nullptr);
  std::string text;
  for (unsigned int i = 0; i < length; ++i) text.append({kDigits[digest[i] >> 4], kDigits[digest[i] & 15]});
  return text;
}

}  // namespace history
