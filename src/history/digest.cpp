#include "history/digest.h"

#include <openssl/evp.h>

#include <array>

namespace history {

std::string Digest(const platform::Bytes& bytes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned int length = 0;
  EVP_Digest(bytes.data(), bytes.size(), digest.data(), &length, EVP_sha256(), nullptr);
  std::string text;
  for (unsigned int i = 0; i < length; ++i) text.append({kDigits[digest[i] >> 4], kDigits[digest[i] & 15]});
  return text;
}

}  // namespace history
