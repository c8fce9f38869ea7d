#include "reference/catalogue/CatalogueRows.h"

#include <charconv>
#include <cmath>
#include <map>
#include <string>

#include "text/CsvTable.h"
#include "reference/RowNulls.h"
#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingType.h"
#include "envelope/CQKBSCategory.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructure.h"
#include "tablekit/CADODatabase.h"

namespace qkdb {

namespace {

// Shortest decimal text of value rounded to 0.01, "." as the decimal point.
std::string Decimal(double value) {
  char text[32];
  auto end = std::to_chars(text, text + sizeof text, std::round(value * 100.0) / 100.0).ptr;
  return std::string(text, end);
}

void CheckAdded(QKLoad::DBStatusCode status, const std::string& what, const std::string& where) {
  if (status == QKLoad::DBS_EXIST)
    throw DataError(where + ": the name of " + what + " is taken by another row; names must be unique");
  CheckWritten(status == QKLoad::DBS_ADDED, where + " (" + what + ")");
}

}  // namespace

int RoughnessCode(const std::string& roughness) {
  static const std::map<std::string, int> codes = {{"VeryRough", 1},   {"Rough", 2}, {"MediumRough", 3},
                                                   {"MediumSmooth", 4}, {"Smooth", 5}, {"VerySmooth", 6}};
  auto found = codes.find(roughness);
  return found == codes.end() ? 0 : found->second;
}

long CatalogueRows::Category(const std::string& name) {
  if (auto found = m_categories.find(name); found != m_categories.end()) return found->second;
  CQKBSCategory category;
  category.Name = CString::FromUtf8(name);
  // The category record has no lookup verbs (hosts only read categories); the build starts from empty
  // tables and remembers what it wrote, so inserting is all it needs.
  CheckWritten(category.InsertData(nullptr) != 0, "category " + name);
  const std::string sql = "UPDATE BSCategory SET OrderId = " + std::to_string(++m_order) +
                          " WHERE ID = " + std::to_string(category.GetID());
  CheckWritten(m_db.Execute(CString::FromUtf8(sql)) != 0, "the order of category " + name);
  return m_categories[name] = category.GetID();
}

long CatalogueRows::ConstructionType(const std::string& name) {
  if (auto found = m_constructionTypes.find(name); found != m_constructionTypes.end()) return found->second;
  CQKTimberingType type;
  type.Name = CString::FromUtf8(name);
  CheckAdded(type.AddIfNotExist(nullptr, 0), "construction type \"" + name + "\"", "construction type");
  return m_constructionTypes[name] = type.GetID();
}

long CatalogueRows::EnvelopeType(const std::string& name, long categoryId) {
  if (auto found = m_envelopeTypes.find(name); found != m_envelopeTypes.end()) return found->second;
  CQKBSType type;
  type.Name = CString::FromUtf8(name);
  type.BSDLId = static_cast<int>(categoryId);
  CheckAdded(type.AddIfNotExist(nullptr, 0), "envelope type \"" + name + "\"", "envelope type");
  return m_envelopeTypes[name] = type.GetID();
}

long CatalogueRows::AddConstruction(CQKTimbering& construction, long typeId, const std::string& where) {
  construction.TTId = static_cast<int>(typeId);
  CheckAdded(construction.AddIfNotExist(nullptr, 0), "construction \"" + construction.GetStuffName().ToUtf8() + "\"",
             where);
  return construction.GetID();
}

void CatalogueRows::AddCode(const std::string& name, long typeId, const std::vector<CodeLayer>& layers,
                            const std::string& where) {
  CQKBSCode code;
  code.Name = CString::FromUtf8(name);
  code.BSTId = typeId;
  CheckAdded(code.AddIfNotExist(nullptr, 0), "envelope code \"" + name + "\"", where);
  std::string ids, thicknesses, factors;
  for (const CodeLayer& layer : layers) {
    const char* comma = ids.empty() ? "" : ",";
    ids += comma + std::to_string(layer.construction);
    thicknesses += comma + Decimal(layer.thicknessMm);
    factors += comma + Decimal(layer.correction);
  }
  CQKBoundingStructure structure;
  structure.BSCId = code.GetID();
  structure.TIdS = CString::FromUtf8(ids);
  structure.HouDuS = CString::FromUtf8(thicknesses);
  structure.XzXsS = CString::FromUtf8(factors);
  CheckWritten(structure.AddOrUpdate(nullptr) != QKLoad::DBS_ERROR, "the bounding structure of " + name);
}

}  // namespace qkdb
