#pragma once
// GroupIds: the IDs of the rows an import files its rows under by name (construction types, room
// types), each found, or added through the record's AddIfNotExist, once per import; an added one goes
// into the report.

#include <map>
#include <string>
#include <utility>

#include "exchange/ImportReport.h"
#include "exchange/ImportValues.h"
#include "foundation/QKLoad.h"
#include "import/WriteTransaction.h"
#include "mfc/CString.h"
#include "text/CsvTable.h"
#include "text/Output.h"

namespace qkdb {

template <class Record>
class GroupIds {
 public:
  // what names the kind in the report: "construction type".
  GroupIds(WriteTransaction& tx, ImportReport& report, std::string what)
      : m_tx(tx), m_report(report), m_what(std::move(what)) {}

  long operator()(const std::string& name) {
    if (auto found = m_ids.find(NameKey(name)); found != m_ids.end()) return found->second;
    Record group;
    group.Name = CString::FromUtf8(name);
    const QKLoad::DBStatusCode status = group.AddIfNotExist(m_tx.Database(), 1);
    if (status == QKLoad::DBS_ERROR) throw DataError("cannot add the " + m_what + " " + Quoted(name));
    if (status == QKLoad::DBS_ADDED) m_report.Added(m_what + " " + Quoted(name));
    return m_ids[NameKey(name)] = group.GetID();
  }

 private:
  WriteTransaction& m_tx;
  ImportReport& m_report;
  std::string m_what;
  std::map<std::wstring, long> m_ids;  // by name, case folded as the tables compare
};

}  // namespace qkdb
