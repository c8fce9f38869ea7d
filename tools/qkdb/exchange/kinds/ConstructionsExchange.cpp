#include "exchange/kinds/ConstructionsExchange.h"

#include <map>
#include <utility>
#include <set>

#include "answers/RowItems.h"
#include "answers/wall/WallInput.h"
#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingType.h"
#include "exchange/GroupIds.h"
#include "exchange/ImportValues.h"
#include "exchange/StoredRows.h"
#include "import/WriteTransaction.h"
#include "text/Output.h"

namespace qkdb {

namespace {

using nlohmann::ordered_json;
using Type = ExchangeColumn::Type;

constexpr const char* kType = "TimberingType.Name";

// The construction's numbers and how the material takes each: the construction table has no NULL
// column, so every one must be given.
struct RealItem {
  const char* item;
  QKLoad::ErrorType (CQKMateralData::*set)(double);
};
const RealItem kReals[] = {
    {"GMD", &CQKMateralData::SetGMD},
    {"DrXs", &CQKMateralData::SetDrXs},
    {"BRr", &CQKMateralData::SetBRr},
    {"TheAbs", &CQKMateralData::SetTheAbs},
    {"SolAbs", &CQKMateralData::SetSolAbs},
    {"VisAbs", &CQKMateralData::SetVisAbs},
    {"SolarT", &CQKMateralData::SetSolarT},
    {"SolarRFront", &CQKMateralData::SetSolarRFront},
    {"SolarRBack", &CQKMateralData::SetSolarRBack},
    {"VisibleT", &CQKMateralData::SetVisibleT},
    {"VisibleRFront", &CQKMateralData::SetVisibleRFront},
    {"VisibleRBack", &CQKMateralData::SetVisibleRBack},
    {"InfraredT", &CQKMateralData::SetInfraredT},
    {"InfraredEFront", &CQKMateralData::SetInfraredEFront},
    {"InfraredEBack", &CQKMateralData::SetInfraredERBack},
};

// The stored columns a construction row is compared on, besides its type.
const char* const kCompared[] = {"GMD",         "DrXs",          "BRr",          "Roughness", "TheAbs",
                                 "SolAbs",      "VisAbs",        "SolarT",       "SolarRFront", "SolarRBack",
                                 "VisibleT",    "VisibleRFront", "VisibleRBack", "InfraredT", "InfraredEFront",
                                 "InfraredEBack"};

class Importer {
 public:
  Importer(WriteTransaction& tx, ImportReport& report)
      : m_tx(tx), m_report(report), m_typeIds(tx, report, "construction type") {}

  void Row(const ordered_json& row, const std::string& where) {
    const std::string typeName = row[kType].get<std::string>();
    const std::string name = row["Name"].get<std::string>();
    if (name.empty()) {
      // A type of its own, perhaps without constructions yet.
      if (const std::string problem = NameProblem(typeName, "construction type"); !problem.empty())
        return m_report.Refused(where, problem);
      m_typeIds(typeName);
      return;
    }
    if (const std::string problem = NameProblem(name, "construction"); !problem.empty())
      return m_report.Refused(where, problem);
    if (!typeName.empty())
      if (const std::string problem = NameProblem(typeName, "construction type"); !problem.empty())
        return m_report.Refused(where, problem);
    if (auto [first, fresh] = m_seen.emplace(NameKey(name), where); !fresh)
      return m_report.Refused(where, "the construction " + Quoted(name) + " is given twice (also " + first->second + ")");
    for (const char* item : kCompared)
      if (row[item].is_null()) return m_report.Refused(where, std::string(item) + " is not given; a construction needs every value");
    // A value typed in another unit (a λ of 810, a c of 1050) would go into every wall built of it.
    for (const auto& [item, quantity] : {std::pair{"GMD", Quantity::kDensity}, std::pair{"DrXs", Quantity::kConductivity},
                                         std::pair{"BRr", Quantity::kSpecificHeat}})
      if (const char* hint = UnitHint(quantity, row[item].get<double>()))
        return m_report.Refused(where, std::string(item) + " " + Number(row[item].get<double>()) + " is implausible: " + hint);
    const long roughness = row["Roughness"].get<long>();
    if (roughness < 0 || roughness > 6) return m_report.Refused(where, "Roughness must be 0 to 6");

    CQKTimbering construction;
    construction.SetStuffName(CString::FromUtf8(name));
    for (const RealItem& r : kReals) (construction.*r.set)(row[r.item].get<double>());
    construction.SetRoughness(static_cast<int>(roughness));
    construction.TTId = typeName.empty() ? 0 : static_cast<int>(m_typeIds(typeName));

    CQKTimbering stored;
    stored.SetStuffName(CString::FromUtf8(name));
    const QKLoad::DBStatusCode found = stored.IsExist(m_tx.Database());
    const std::string what = "construction " + Quoted(name) + (typeName.empty() ? "" : " (" + typeName + ")");
    if (found == QKLoad::DBS_NOTEXIST) {
      if (construction.AddIfNotExist(m_tx.Database(), 0) != QKLoad::DBS_ADDED)
        throw DataError("cannot add the " + what);
      return m_report.Added(what);
    }
    if (found != QKLoad::DBS_EXIST) throw DataError("cannot look up the " + what);
    const std::string changed = Changes(stored.GetID(), row, construction.TTId);
    if (changed.empty()) return m_report.Unchanged();
    construction.SetID(stored.GetID());
    if (construction.UpdateIfNoOther(m_tx.Database(), 0) != QKLoad::DBS_UPDATED)
      throw DataError("cannot update the " + what);
    m_report.Updated(what + ": " + changed);
  }

 private:
  // The items whose stored value differs from the row's, "GMD, DrXs"; "" when none does.
  std::string Changes(long id, const ordered_json& row, long typeId) {
    std::string sql = "SELECT TTId";
    for (const char* item : kCompared) sql += std::string(", ") + item;
    const auto stored = m_tx.Values(sql + " FROM Timbering WHERE ID = " + std::to_string(id), "read a construction");
    if (stored.rows.size() != 1) throw DataError("cannot read the construction with ID " + std::to_string(id));
    std::string changed;
    if (!SameValue(typeId, stored.rows[0][0])) changed = "its type";
    for (std::size_t i = 0; i < std::size(kCompared); ++i)
      if (!SameValue(row[kCompared[i]], stored.rows[0][i + 1])) changed += (changed.empty() ? "" : ", ") + std::string(kCompared[i]);
    return changed;
  }

  WriteTransaction& m_tx;
  ImportReport& m_report;
  GroupIds<CQKTimberingType> m_typeIds;  // the type IDs by name
  std::map<std::wstring, std::string> m_seen;
};

}  // namespace

std::vector<ExchangeColumn> ConstructionColumns() {
  const std::string fraction = "0–1";
  return {
      {kType, "构造类型 / construction type", "", Type::Text},
      {"Name", "材料 / construction", "", Type::Text},
      {"GMD", "密度 / density", "kg/m³", Type::Real},
      {"DrXs", "导热系数 / thermal conductivity (an air space: its conductance, W/(m²·K))", "W/(m·K)", Type::Real},
      {"BRr", "比热容 / specific heat", "kJ/(kg·K)", Type::Real},
      {"Roughness", "粗糙度 / roughness, 1 very rough … 6 very smooth, 0 not given", "", Type::Integer},
      {"TheAbs", "热吸收率 / thermal absorptance", fraction, Type::Real},
      {"SolAbs", "太阳辐射吸收率 / solar absorptance", fraction, Type::Real},
      {"VisAbs", "可见光吸收率 / visible absorptance", fraction, Type::Real},
      {"SolarT", "太阳光透射比 / solar transmittance", fraction, Type::Real},
      {"SolarRFront", "太阳光反射比 正面 / solar reflectance, front", fraction, Type::Real},
      {"SolarRBack", "太阳光反射比 背面 / solar reflectance, back", fraction, Type::Real},
      {"VisibleT", "可见光透射比 / visible transmittance", fraction, Type::Real},
      {"VisibleRFront", "可见光反射比 正面 / visible reflectance, front", fraction, Type::Real},
      {"VisibleRBack", "可见光反射比 背面 / visible reflectance, back", fraction, Type::Real},
      {"InfraredT", "红外透射比 / infrared transmittance", fraction, Type::Real},
      {"InfraredEFront", "红外发射率 正面 / infrared emissivity, front", fraction, Type::Real},
      {"InfraredEBack", "红外发射率 背面 / infrared emissivity, back", fraction, Type::Real},
  };
}

ExchangeTable ExportConstructions() {
  ExchangeTable table("constructions", ConstructionColumns());
  CQKTimberingType reader;
  const auto add = [&table](const std::string& typeName, const std::string& id) {
    CQKTimbering construction;
    ordered_json items;
    if (!construction.ReadData(std::stol(id)) || !RowItems(construction, construction, items))
      throw DataError("cannot read the construction with ID " + id);
    ordered_json row = {{kType, typeName}};
    for (const auto& [item, value] : items.items())
      if (item != "TTId") row[item] = value;
    table.Add(row);
  };
  for (const auto& type : StoredRows(reader, "select ID, Name from TimberingType order by ID")) {
    const auto ids = StoredRows(reader, "select ID from Timbering where TTId = " + type[0] + " order by ID");
    if (ids.empty()) table.Add({{kType, type[1]}});
    for (const auto& id : ids) add(type[1], id[0]);
  }
  // Constructions filed under no type the table holds: kept, with no type name.
  for (const auto& id : StoredRows(reader, "select ID from Timbering where TTId not in (select ID from TimberingType) order by ID"))
    add("", id[0]);
  return table;
}

void ImportConstructions(WriteTransaction& tx, const ExchangeTable& table, ImportReport& report) {
  Importer importer(tx, report);
  for (std::size_t r = 0; r < table.Size(); ++r) importer.Row(table.Row(r), table.Where(r));
}

}  // namespace qkdb
