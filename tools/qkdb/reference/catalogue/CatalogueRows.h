#pragma once
// The rows of the envelope catalogue, written through its record classes (CQKTimberingType,
// CQKTimbering, CQKBSCategory, CQKBSType, CQKBSCode, CQKBoundingStructure, bound to the database
// beforehand) by the loaders of each source.
//
// A construction's, an envelope type's and an envelope code's name is its key over the whole table
// (the records look rows up by name alone), so a name written twice would silently make two sources'
// rows one: every add here refuses a name that is already taken.

#include <map>
#include <string>
#include <vector>

class CADODatabase;
class CQKTimbering;

namespace qkdb {

// One layer of a bounding structure: the construction's ID, its thickness in mm (rounded to 0.01 mm
// when stored) and the correction coefficient of its conductivity.
struct CodeLayer {
  long construction = 0;
  double thicknessMm = 0.0;
  double correction = 1.0;
};

// EnergyPlus's six roughness classes (VeryRough … VerySmooth), numbered 1 to 6 from the roughest; 0
// for a text that is none of them (a source that gives no roughness).
int RoughnessCode(const std::string& roughness);

class CatalogueRows {
 public:
  // db is a connection on the same database, for the category order, which the category record does
  // not write.
  explicit CatalogueRows(CADODatabase& db) : m_db(db) {}

  // The ID of the category, construction type or envelope type of that name; the first call writes
  // it. Categories are ordered (OrderId) as they are first asked for.
  long Category(const std::string& name);
  long ConstructionType(const std::string& name);
  long EnvelopeType(const std::string& name, long categoryId);

  // Writes construction into the construction type typeId and returns its ID. where names the data
  // row in messages. Throws DataError when the name is taken or the row cannot be written.
  long AddConstruction(CQKTimbering& construction, long typeId, const std::string& where);

  // Writes an envelope code of the type typeId with its bounding structure, layers outside first.
  void AddCode(const std::string& name, long typeId, const std::vector<CodeLayer>& layers, const std::string& where);

 private:
  CADODatabase& m_db;
  std::map<std::string, long> m_categories, m_constructionTypes, m_envelopeTypes;
  int m_order = 0;
};

}  // namespace qkdb
