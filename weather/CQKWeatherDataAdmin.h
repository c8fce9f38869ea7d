#pragma once
// CQKWeatherDataAdmin: the places of the reference database as a tree (countries, their provinces,
// their cities), optionally only those with a weather file; the lookups that find the climate a
// calculation should use for a city; and the deletion of places.
//
// The admin owns every node it made: those reachable from its root, and those made outside the tree
// because their parent was missing (kept aside so they are freed with the tree). Copies build their
// own nodes. Every query runs
// on the class-wide connection of the record it concerns, as those classes were told with S_Init.
// The deletions change the database only: rebuild the tree with GetCityNodes(1, …) afterwards.
// Not safe for concurrent use.

#include "QKExport.h"
#include "foundation/CLxArray.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "mfc/CString.h"
#include "weather/CQKWeather.h"

class QK_EXPORT CQKWeatherDataAdmin {
 public:
  // One place of the tree. Made with a parent, a node appends itself to the parent's children; a node
  // made without one belongs to nobody.
  struct QK_EXPORT tagCityNode {
    tagCityNode(const wchar_t* name, long id, int flag, tagCityNode* parent);
    tagCityNode(const tagCityNode&) = delete;
    tagCityNode& operator=(const tagCityNode&) = delete;

    CString strName;                   // display name; "*" for the root
    int nFlag;                         // 1 root, 1 country, 0 province, 1 city: the host's to read
    long nId;                          // ID of the country, province or city row; -1 for the root
    tagCityNode* pParent;              // null for the root and for a node whose parent was missing
    CLxArray<tagCityNode*> arrChild;   // in the order they were made
  };

  CQKWeatherDataAdmin() = default;
  // A deep copy of other's tree.
  CQKWeatherDataAdmin(const CQKWeatherDataAdmin& other);
  CQKWeatherDataAdmin& operator=(const CQKWeatherDataAdmin& other);

  // The tree as it is when bRefresh is 0 and one exists (bWeatherOnly is then ignored); otherwise the
  // tree is rebuilt (see MakeCityNodes) and its root returned, also when the building stopped part-way.
  // Declared first of the virtual functions: it is the first slot of the class's virtual table.
  virtual tagCityNode* GetCityNodes(int bRefresh, bool bWeatherOnly);
  // Releases the tree.
  virtual ~CQKWeatherDataAdmin();

  // The first node, in child order, whose name equals the record's name exactly or whose id equals its
  // ID; null when there is none, or no tree.
  tagCityNode* FindCountryNode(CQKCountry& country);
  tagCityNode* FindProvinceNode(CQKCountry& country, CQKProvince& province);
  tagCityNode* FindCityNode(CQKCountry& country, CQKProvince& province, CQKCity& city);

  // Deletes the city's row from the city table (its weather rows stay, despite the name). 0 after the
  // message "删除表 \"<city table>\" 时出错!" (error icon), else 1.
  int DeleteWeatherofCity(CQKCity& city);
  // Deletes the weather rows of city id, then the city's row, both on the weather record's connection.
  // 0 with "删除表 \"<table>\" 时出错!" in strError for the table that failed, else 1. No message box.
  // The two statements are not one transaction: when the city's row fails, its weather rows are
  // already gone and the city stays without them.
  int DeleteWeatherByCityID(long id, CString& strError);
  // Deletes each city under the province's node (when the tree has it), then the province's row. 0
  // after the message "删除表 \"<province table>\" 时出错!" with no icon, else 1. Its weather rows and
  // those of its cities stay. Each statement stands on its own: a city that fails shows
  // DeleteWeatherofCity's message and stays while the others and the province go (result 1); when the
  // province's row fails, the cities deleted before are gone and the province stays (result 0).
  int DeleteWeatherOfProvince(CQKCountry& country, CQKProvince& province);
  // Deletes the country's row only. 0 after "删除表 \"<country table>\" 时出错!" (error icon), else 1.
  int DeleteCountry(CQKCountry& country);

  // Fills weather with the row of its CId, and when that row names no weather file, with the climate of
  // the nearest city within 1.0 (in the stored unit of JD and WD) that has one; then sets the three
  // names from the city whose CId the record ends with (a neighbour's after a fallback). Returns 0 when
  // the city's own row names a weather file, or when the query fails, or when there is no row (the
  // record then keeps its climate); otherwise what GetWeatherByJWD returned. 0 is not a failure.
  static int GetWeatherByCityId(CQKWeather& weather);
  // Takes the climate (CId and ID included) of the stored place nearest to weather's JD and WD, within
  // halfWidth in both, that has a weather file; ties go to the earlier row. The names stay those of the
  // city weather's CId named before. 1 when a climate was taken and the names were found, else 0.
  static int GetWeatherByJWD(CQKWeather& weather, double halfWidth);
  // Sets city's ID to the first city of that name, or, when none has it, to the first city of the
  // table. 1, or 0 when the query fails.
  static int GetCityIdByName(CQKCity& city);

  static CString s_m_sEpwDir;     // folder of the EPW weather files; the host's to set and read
  static CString s_m_sReprotDir;  // folder of the reports; the host's to set and read

 protected:
  // Releases node and every node under it, children first, and forgets the root (on every call).
  void ReleaseCityNodes(tagCityNode* node);

  tagCityNode* m_pCityRoot = nullptr;

 private:
  // Releases the tree and the nodes made outside it.
  void ReleaseAll();
  // Builds the tree under a new root: 1 when the city level was reached, 0 when the countries or the
  // provinces could not be read or there were none. A province or city whose parent is missing is made
  // outside the tree, after a message.
  int MakeCityNodes(bool bWeatherOnly);
  // Runs sql on weather's connection and takes the nearest candidate with a weather file.
  static int GetWeather(CString sql, CQKWeather& weather);

  CLxArray<tagCityNode*> m_arrOrphan;  // nodes made with a null parent
};
