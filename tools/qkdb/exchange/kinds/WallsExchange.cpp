#include "exchange/kinds/WallsExchange.h"

#include <map>
#include <sstream>

#include "construction/CQKTimbering.h"
#include "envelope/CQKBSCategory.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructure.h"
#include "exchange/ImportValues.h"
#include "exchange/StoredRows.h"
#include "import/WriteTransaction.h"
#include "text/Output.h"

namespace qkdb {

namespace {

using nlohmann::ordered_json;
using Type = ExchangeColumn::Type;

constexpr const char* kCategory = "BSCategory.Name";
constexpr const char* kType = "BSType.Name";
constexpr const char* kCode = "BSCode.Name";

// The bounding structure's lists split at their commas.
std::vector<std::string> Split(const std::string& list) {
  std::vector<std::string> parts;
  if (list.empty()) return parts;
  std::stringstream in(list);
  for (std::string part; std::getline(in, part, ',');) parts.push_back(part);
  return parts;
}

double Decimal(const std::string& text, const std::string& what) {
  try {
    std::size_t used = 0;
    const double v = std::stod(text, &used);
    if (used == text.size()) return v;
  } catch (const std::exception&) {
  }
  throw DataError(what + ": " + Quoted(text) + " is not a number");
}

// The layers of one code as the file gives them, outside first.
struct Layer {
  std::string construction;
  double thickness = 0.0;
  double correction = 1.0;
};

// A code of the file: its names and layers, and the first row that gave it.
struct Code {
  std::string category, type, name, where;
  std::vector<Layer> layers;
  std::string refused;
};

class Importer {
 public:
  Importer(WriteTransaction& tx, ImportReport& report) : m_tx(tx), m_report(report) {}

  void Write(Code& code) {
    if (!code.refused.empty()) return m_report.Refused(code.where, code.refused);
    std::vector<long> ids;
    for (const Layer& layer : code.layers) {
      CQKTimbering construction;
      construction.SetStuffName(CString::FromUtf8(layer.construction));
      const QKLoad::DBStatusCode found = construction.IsExist(m_tx.Database());
      if (found == QKLoad::DBS_ERROR) throw DataError("cannot look up the construction " + Quoted(layer.construction));
      if (found != QKLoad::DBS_EXIST)
        return m_report.Refused(code.where, "no construction named " + Quoted(layer.construction) +
                                                " in the database (import the constructions first)");
      ids.push_back(construction.GetID());
    }
    const long categoryId = Category(code.category);
    if (code.type.empty()) return;
    const long typeId = TypeOf(code, categoryId);
    if (typeId == 0 || code.name.empty()) return;
    WriteCode(code, typeId, ids);
  }

 private:
  long Category(const std::string& name) {
    if (auto found = m_categories.find(NameKey(name)); found != m_categories.end()) return found->second;
    const auto rows = m_tx.Rows("SELECT ID FROM BSCategory WHERE Name = " + WriteTransaction::Literal(name) +
                                    " ORDER BY OrderId, ID",
                                "look up an envelope category");
    if (!rows.empty()) return m_categories[NameKey(name)] = std::stol(rows[0][0]);
    // The category record has no lookup verbs: it is inserted, and listed after the categories there.
    CQKBSCategory category;
    category.Name = CString::FromUtf8(name);
    if (!category.InsertData(m_tx.Database())) throw DataError("cannot add the envelope category " + Quoted(name));
    const std::string id = std::to_string(category.GetID());
    m_tx.Execute("UPDATE BSCategory SET OrderId = (SELECT COALESCE(MAX(OrderId), 0) + 1 FROM BSCategory) WHERE ID = " + id,
                 "order the envelope category " + name);
    m_report.Added("envelope category " + Quoted(name));
    return m_categories[NameKey(name)] = category.GetID();
  }

  // The type's ID, added or moved into its category; 0 when the row is refused.
  long TypeOf(const Code& code, long categoryId) {
    const std::wstring key = NameKey(code.type);
    if (auto found = m_types.find(key); found != m_types.end()) {
      if (found->second.second == categoryId) return found->second.first;
      m_report.Refused(code.where, "the envelope type " + Quoted(code.type) + " is given under two categories");
      return 0;
    }
    CQKBSType type;
    type.Name = CString::FromUtf8(code.type);
    const QKLoad::DBStatusCode found = type.IsExist(m_tx.Database());
    const std::string what = "envelope type " + Quoted(code.type);
    if (found == QKLoad::DBS_NOTEXIST) {
      type.BSDLId = static_cast<int>(categoryId);
      if (type.AddIfNotExist(m_tx.Database(), 0) != QKLoad::DBS_ADDED) throw DataError("cannot add the " + what);
      m_report.Added(what);
    } else if (found != QKLoad::DBS_EXIST) {
      throw DataError("cannot look up the " + what);
    } else if (type.BSDLId != categoryId) {
      type.BSDLId = static_cast<int>(categoryId);
      if (type.UpdateIfNoOther(m_tx.Database(), 0) != QKLoad::DBS_UPDATED) throw DataError("cannot update the " + what);
      m_report.Updated(what + ": moved to the category " + Quoted(code.category));
    }
    m_types[key] = {type.GetID(), categoryId};
    return type.GetID();
  }

  void WriteCode(const Code& code, long typeId, const std::vector<long>& ids) {
    std::string idList, thicknesses, corrections;
    for (std::size_t i = 0; i < ids.size(); ++i) {
      const char* comma = i ? "," : "";
      idList += comma + std::to_string(ids[i]);
      thicknesses += comma + Number(code.layers[i].thickness);
      corrections += comma + Number(code.layers[i].correction);
    }
    CQKBSCode stored;
    stored.Name = CString::FromUtf8(code.name);
    const QKLoad::DBStatusCode found = stored.IsExist(m_tx.Database());
    const std::string what = "envelope code " + Quoted(code.name) + " (" + code.type + ", " +
                             std::to_string(ids.size()) + (ids.size() == 1 ? " layer)" : " layers)");
    std::string changed;
    if (found == QKLoad::DBS_NOTEXIST) {
      stored.BSTId = typeId;
      if (stored.AddIfNotExist(m_tx.Database(), 0) != QKLoad::DBS_ADDED) throw DataError("cannot add the " + what);
    } else if (found != QKLoad::DBS_EXIST) {
      throw DataError("cannot look up the " + what);
    } else if (stored.BSTId != typeId) {
      stored.BSTId = typeId;
      if (stored.UpdateIfNoOther(m_tx.Database(), 0) != QKLoad::DBS_UPDATED) throw DataError("cannot update the " + what);
      changed = "its type";
    }
    const auto layers = m_tx.Rows("SELECT TIdS, HouDuS, XzXsS FROM BoundingStructure WHERE BSCId = " +
                                      std::to_string(stored.GetID()) + " ORDER BY ID",
                                  "read a bounding structure");
    const bool same = !layers.empty() && layers[0][0] == idList && layers[0][1] == thicknesses && layers[0][2] == corrections;
    // A code without layers needs no bounding structure row; one it has keeps being written empty.
    if (!same && !(layers.empty() && ids.empty())) {
      CQKBoundingStructure structure;
      structure.BSCId = stored.GetID();
      structure.TIdS = CString::FromUtf8(idList);
      structure.HouDuS = CString::FromUtf8(thicknesses);
      structure.XzXsS = CString::FromUtf8(corrections);
      if (structure.AddOrUpdate(m_tx.Database()) == QKLoad::DBS_ERROR)
        throw DataError("cannot write the bounding structure of the " + what);
      if (found == QKLoad::DBS_EXIST) changed += std::string(changed.empty() ? "" : ", ") + "its layers";
    }
    if (found == QKLoad::DBS_NOTEXIST)
      m_report.Added(what);
    else if (changed.empty())
      m_report.Unchanged();
    else
      m_report.Updated(what + ": " + changed);
  }

  WriteTransaction& m_tx;
  ImportReport& m_report;
  std::map<std::wstring, long> m_categories;
  std::map<std::wstring, std::pair<long, long>> m_types;  // the type's ID and its category's
};

// The file's rows gathered into codes, in the order the codes first appear; a row that cannot be
// used marks its code refused.
std::vector<Code> Codes(const ExchangeTable& table) {
  std::vector<Code> codes;
  std::map<std::wstring, std::size_t> byName;  // a code's place in codes, by its name (or its type's for none)
  for (std::size_t r = 0; r < table.Size(); ++r) {
    const ordered_json& row = table.Row(r);
    Code read{row[kCategory].get<std::string>(), row[kType].get<std::string>(), row[kCode].get<std::string>(),
              table.Where(r), {}, ""};
    std::string problem = NameProblem(read.category, "envelope category");
    if (problem.empty() && !read.type.empty()) problem = NameProblem(read.type, "envelope type");
    if (problem.empty() && !read.name.empty()) problem = NameProblem(read.name, "envelope code");
    if (problem.empty() && read.type.empty() && !read.name.empty()) problem = "the envelope code has no type";
    const bool hasLayer = !row["Layer"].is_null() || !row["TIdS"].get<std::string>().empty();
    if (problem.empty() && hasLayer && read.name.empty()) problem = "a layer without an envelope code";
    if (!problem.empty()) {
      read.refused = problem;
      codes.push_back(std::move(read));
      continue;
    }
    const std::wstring key = read.name.empty() ? L"" : NameKey(read.name);
    auto found = key.empty() ? byName.end() : byName.find(key);
    if (found == byName.end()) {
      if (!key.empty()) byName[key] = codes.size();
      codes.push_back(read);
      found = key.empty() ? byName.end() : byName.find(key);
    }
    Code& code = key.empty() ? codes.back() : codes[found->second];
    if (!code.refused.empty() || !hasLayer) continue;
    if (NameKey(code.type) != NameKey(read.type) || NameKey(code.category) != NameKey(read.category)) {
      code.refused = "the envelope code " + Quoted(read.name) + " is given under two types (" + read.where + ")";
      continue;
    }
    const std::string construction = row["TIdS"].get<std::string>();
    if (row["Layer"].is_null() || row["Layer"].get<long long>() != static_cast<long long>(code.layers.size()) + 1)
      code.refused = read.where + ": the layers of a code are numbered 1, 2, 3 … in order, outside first";
    else if (construction.empty() || row["HouDuS"].is_null() || row["XzXsS"].is_null())
      code.refused = read.where + ": a layer needs its construction (TIdS), thickness (HouDuS) and correction (XzXsS)";
    else if (row["HouDuS"].get<double>() < 0.0 || row["XzXsS"].get<double>() < 0.0)
      code.refused = read.where + ": a layer's thickness and correction cannot be negative";
    else
      code.layers.push_back({construction, row["HouDuS"].get<double>(), row["XzXsS"].get<double>()});
  }
  return codes;
}

}  // namespace

std::vector<ExchangeColumn> WallColumns() {
  return {
      {kCategory, "围护结构类别 / envelope category", "", Type::Text},
      {kType, "围护结构类型 / envelope type", "", Type::Text},
      {kCode, "围护结构编号 / envelope code", "", Type::Text},
      {"Layer", "层 / layer, 1 the outermost", "", Type::Integer},
      {"TIdS", "构造 / the layer's construction, by name", "", Type::Text},
      {"HouDuS", "厚度 / thickness", "mm", Type::Real},
      {"XzXsS", "导热系数修正系数 / conductivity correction factor", "", Type::Real},
  };
}

ExchangeTable ExportWalls() {
  ExchangeTable table("walls", WallColumns());
  CQKBSType reader;
  std::map<std::string, std::string> constructions;
  for (const auto& row : StoredRows(reader, "select ID, Name from Timbering")) constructions[row[0]] = row[1];
  for (const auto& category : StoredRows(reader, "select ID, Name from BSCategory order by OrderId, ID")) {
    const auto types = StoredRows(reader, "select ID, Name from BSType where BSDLId = " + category[0] + " order by ID");
    if (types.empty()) table.Add({{kCategory, category[1]}});
    for (const auto& type : types) {
      const auto codes = StoredRows(reader, "select ID, Name from BSCode where BSTId = " + type[0] + " order by ID");
      if (codes.empty()) table.Add({{kCategory, category[1]}, {kType, type[1]}});
      for (const auto& code : codes) {
        const ordered_json names = {{kCategory, category[1]}, {kType, type[1]}, {kCode, code[1]}};
        const auto structure = StoredRows(
            reader, "select TIdS, HouDuS, XzXsS from BoundingStructure where BSCId = " + code[0] + " order by ID");
        const auto ids = structure.empty() ? std::vector<std::string>() : Split(structure[0][0]);
        const auto thicknesses = structure.empty() ? std::vector<std::string>() : Split(structure[0][1]);
        const auto corrections = structure.empty() ? std::vector<std::string>() : Split(structure[0][2]);
        const std::string what = "the envelope code " + Quoted(code[1]);
        if (thicknesses.size() != ids.size() || corrections.size() != ids.size())
          throw DataError(what + " has lists of layers of different lengths");
        if (ids.empty()) table.Add(names);
        for (std::size_t i = 0; i < ids.size(); ++i) {
          const auto construction = constructions.find(ids[i]);
          if (construction == constructions.end())
            throw DataError(what + " has a layer of construction ID " + ids[i] + ", which the database does not hold");
          ordered_json row = names;
          row["Layer"] = i + 1;
          row["TIdS"] = construction->second;
          row["HouDuS"] = Decimal(thicknesses[i], what);
          row["XzXsS"] = Decimal(corrections[i], what);
          table.Add(row);
        }
      }
    }
  }
  return table;
}

void ImportWalls(WriteTransaction& tx, const ExchangeTable& table, ImportReport& report) {
  Importer importer(tx, report);
  for (Code& code : Codes(table)) importer.Write(code);
}

}  // namespace qkdb
