#include "console/error_output.h"

#include <ostream>

#include "host/error_text.h"

namespace console {

void PrintError(std::ostream& err, const platform::RuntimeError& error) {
  zorCrmParvel::ErrorText text = zorCrmParvel::TextOf(error);
  err << text.message << '\n';
  if (text.details.empty()) return;
  for (auto at = text.details.find('\n'); at != std::string::npos; at = text.details.find('\n', at))
    text.details.replace(at, 1, "; ");
  err << "Pormenores: " << text.details << '\n';
}

}  // namespace console
