#include "exchange/ImportReport.h"

namespace qkdb {

std::string ImportReport::Text() const {
  std::string text;
  const auto counts = std::to_string(m_added) + " added, " + std::to_string(m_updated) + " updated, " +
                      std::to_string(m_unchanged) + " unchanged";
  if (AnyRefused()) {
    for (const std::string& line : m_refused) text += line + "\n";
    return text + std::to_string(m_refused.size()) + " refused; nothing was changed (else " + counts + ")\n";
  }
  for (const std::string& line : m_lines) text += line + "\n";
  return text + counts + "\n";
}

}  // namespace qkdb
