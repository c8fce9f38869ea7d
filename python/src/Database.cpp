#include "Database.h"

#include <dlfcn.h>
#include <pybind11/stl.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "text/CsvTable.h"
#include "Errors.h"
#include "files/ReferenceDatabase.h"
#include "answers/MaterialsAnswer.h"
#include "text/Output.h"
#include "answers/RoomAnswer.h"
#include "answers/TreeAnswer.h"
#include "answers/wall/WallsAnswer.h"
#include "answers/WeatherAnswer.h"
#include "binding/ReferenceTables.h"
#include "tablekit/CADODatabase.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace py = pybind11;
namespace fs = std::filesystem;

namespace qkdbpy {

namespace {

// JSON of the tool's answers as Python objects (dict, list, str, float, int, bool, None).
py::object ToPython(const nlohmann::ordered_json& json) {
  return py::module_::import("json").attr("loads")(json.dump());
}

// This module's file: the shipped database is found relative to it, as qkdb finds it relative to itself.
const int kInThisModule = 0;

fs::path ModuleFile() {
  Dl_info info{};
  dladdr(&kInThisModule, &info);
  return info.dli_fname ? fs::path(info.dli_fname) : fs::path();
}

// share/QKModelDataBase/reference.db: in the build tree two folders above python/qkdb/, installed four
// above lib/python3/dist-packages/qkdb/. The installed place when neither exists, for the message.
std::string ShippedDatabase() {
  const fs::path here = ModuleFile().parent_path();
  for (const char* up : {"../..", "../../../.."}) {
    const fs::path candidate = (here / up / "share/QKModelDataBase/reference.db").lexically_normal();
    std::error_code ec;
    if (fs::exists(candidate, ec)) return candidate.string();
  }
  return (here / "../../../../share/QKModelDataBase/reference.db").lexically_normal().string();
}

// The record classes are bound class-wide: one database at a time for the whole process. A Database
// remembers its own and binds it again before a call when another was opened since.
std::string g_bound;

class Database {
 public:
  explicit Database(const std::optional<std::string>& path) {
    const char* env = std::getenv("QKDB_DATABASE");
    m_path = path ? *path : env && *env ? std::string(env) : ShippedDatabase();
    Use();
  }

  const std::string& Path() const { return m_path; }

  void Use() const {
    if (g_bound == m_path) return;
    // Each class keeps the connection it opened and opens another only when it finds it closed: close
    // them, so that every class reads the database bound next.
    ForEachRecordClass([]<typename Record>(const wchar_t*) {
      if (Record::m_pADODatabase) Record::m_pADODatabase->Close();
    });
    g_bound.clear();
    const std::string problem = qkdb::OpenForReading(m_path);
    if (!problem.empty()) throw py::value_error(problem);
    g_bound = m_path;
  }

  py::object Weather(const std::optional<std::string>& name, const std::optional<long>& cityId,
                     const std::optional<std::pair<double, double>>& near) const {
    if (name.has_value() + cityId.has_value() + near.has_value() != 1)
      throw py::value_error("give exactly one of a name, city_id and near");
    if (near && (!(std::abs(near->first) <= 180.0) || !(std::abs(near->second) <= 90.0)))
      throw py::value_error("near takes (longitude, latitude) in degrees east and north");
    Use();
    const qkdb::WeatherAnswer answer = near   ? qkdb::ClimateNear(near->first, near->second)
                                       : name ? qkdb::ClimateByName(*name)
                                              : qkdb::ClimateById(*cityId);
    if (!answer.refused.empty()) throw NotFound(answer.refused);
    return ToPython(answer.json);
  }

  py::list Cities() const {
    Use();
    CQKWeatherDataAdmin admin;
    py::list out;
    const auto* root = admin.GetCityNodes(1, false);
    for (int c = 0; root && c < root->arrChild.GetSize(); ++c)
      for (int p = 0; p < root->arrChild[c]->arrChild.GetSize(); ++p) {
        const auto* province = root->arrChild[c]->arrChild[p];
        for (int i = 0; i < province->arrChild.GetSize(); ++i)
          out.append(py::dict(py::arg("id") = province->arrChild[i]->nId,
                              py::arg("name") = province->arrChild[i]->strName.ToUtf8(),
                              py::arg("province") = province->strName.ToUtf8(),
                              py::arg("country") = root->arrChild[c]->strName.ToUtf8()));
      }
    return out;
  }

  py::object Tree(const std::string& which) const {
    if (which != "weather" && which != "envelope" && which != "constructions" && which != "rooms")
      throw py::value_error("tree takes \"weather\", \"envelope\", \"constructions\" or \"rooms\", not " +
                            qkdb::Quoted(which));
    Use();
    return ToPython(qkdb::Tree(which, false));
  }

  py::object Materials(const std::optional<std::string>& search, const std::optional<std::string>& type) const {
    Use();
    const qkdb::MaterialsAnswer answer = qkdb::Materials(type.value_or(""), search.value_or(""));
    if (!answer.refused.empty()) throw NotFound(answer.refused);
    return ToPython(answer.json);
  }

  py::object Rooms(const std::optional<std::string>& type) const {
    Use();
    const qkdb::RoomAnswer answer = qkdb::RoomUses(type.value_or(""));
    if (!answer.refused.empty()) throw NotFound(answer.refused);
    return ToPython(answer.json);
  }

  py::object Room(const std::string& name, const std::optional<std::string>& type, bool schedules) const {
    Use();
    const qkdb::RoomAnswer answer = qkdb::RoomUseParameters(name, type.value_or(""), schedules);
    if (!answer.refused.empty()) throw NotFound(answer.refused);
    return ToPython(answer.json);
  }

  // The codes of an envelope type, each with its layers as the wall calculation takes them.
  py::list Walls(const std::string& typeName) const {
    Use();
    qkdb::WallsAnswer answer = qkdb::TypeWalls(typeName, false);
    if (!answer.refused.empty()) throw NotFound(answer.refused);
    py::list out;
    for (int i = 0; i < answer.walls.GetSize(); ++i) out.append(ToPython(qkdb::WallJson(answer.walls[i])));
    return out;
  }

 private:
  std::string m_path;
};

}  // namespace

void DefineDatabase(py::module_& m) {
  py::class_<Database>(m, "_Database")
      .def(py::init<const std::optional<std::string>&>(), py::arg("path") = std::nullopt)
      .def_property_readonly("path", &Database::Path)
      .def("weather", &Database::Weather, py::arg("name") = std::nullopt, py::arg("city_id") = std::nullopt,
           py::arg("near") = std::nullopt)
      .def("cities", &Database::Cities)
      .def("tree", &Database::Tree, py::arg("which"))
      .def("walls", &Database::Walls, py::arg("type_name"))
      .def("materials", &Database::Materials, py::arg("search") = std::nullopt, py::arg("type") = std::nullopt)
      .def("rooms", &Database::Rooms, py::arg("type") = std::nullopt)
      .def("room", &Database::Room, py::arg("name"), py::arg("type") = std::nullopt, py::arg("schedules") = false);
}

}  // namespace qkdbpy
