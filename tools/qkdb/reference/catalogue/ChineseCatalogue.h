#pragma once
// The Chinese part of the envelope catalogue (see docs/reference-data.md):
//   - the materials of the previous editions' table of the Chinese thermal design code
//     (data/materials_cn_gb50176_93_era.csv), each a construction in the construction type of its group
//     ("GB 50176-93 普通混凝土" …), ρ kg/m³, λ W/(m·K) and c kJ/(kg·K) as printed; the printed S24 is a
//     second reading and is not stored;
//   - the 15 materials of the 09J908-3 atlas's wall build-ups (data/materials_09j908_3_gudaostudio.csv),
//     c given in J/(kg·K) and stored in kJ/(kg·K);
//   - the atlas's 754 build-ups (data/constructions_09j908_3_gudaostudio.csv) as envelope codes of the
//     category 外墙, one envelope type per wall kind, layers outside first, correction coefficients 1.
// A data row whose `decision` says "left out" is not loaded.

#include <filesystem>

namespace qkdb {

class CatalogueRows;

// Throws DataError for data that cannot be used, a name that repeats, or a row that cannot be written.
void LoadChineseCatalogue(const std::filesystem::path& dataDir, CatalogueRows& rows);

}  // namespace qkdb
