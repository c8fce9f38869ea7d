#include "import/access/AccessFile.h"

// glib first: mdbtools.h includes it inside its extern "C" block, where glib's C++ templates cannot be.
#include <glib.h>
#include <mdbtools.h>

#include <cstdlib>
#include <cstring>

#include "import/access/AccessTable.h"
#include "text/CsvTable.h"

namespace qkdb {

struct AccessFile::Handle {
  MdbHandle* mdb = nullptr;
  ~Handle() {
    if (mdb) mdb_close(mdb);
  }
};

namespace {

MdbCatalogEntry* Entry(MdbHandle* mdb, unsigned i) {
  return static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
}

}  // namespace

AccessFile::AccessFile(const std::string& path) : m_handle(std::make_unique<Handle>()), m_path(path) {
  // MDBICONV would make mdbtools convert Jet 3 text and object names to another character set than
  // UTF-8, which SQLite's text is.
  unsetenv("MDBICONV");
  MdbHandle* mdb = m_handle->mdb = mdb_open(path.c_str(), MDB_NOFLAGS);
  if (!mdb) throw DataError("cannot open " + path + " as an Access database");
  if (!mdb_read_catalog(mdb, MDB_ANY)) throw DataError("cannot read the list of tables of " + path);

  // mdbtools reads the catalogue (the system table MSysObjects) until a page fails and keeps what it
  // found, so a cut file can lose tables without a word. The catalogue's own row count tells.
  long recorded = -1;
  for (unsigned i = 0; i < mdb->num_catalog; ++i) {
    MdbCatalogEntry* entry = Entry(mdb, i);
    if (std::strcmp(entry->object_name, "MSysObjects") != 0) continue;
    if (MdbTableDef* catalogue = mdb_read_table(entry)) {
      recorded = catalogue->num_rows;
      mdb_free_tabledef(catalogue);
    }
  }
  if (recorded != static_cast<long>(mdb->num_catalog))
    throw DataError(path + " is damaged: its list of tables cannot be read in full");

  for (unsigned i = 0; i < mdb->num_catalog; ++i) {
    MdbCatalogEntry* entry = Entry(mdb, i);
    if (entry->object_type == MDB_TABLE && mdb_is_user_table(entry)) m_tables.push_back(entry->object_name);
  }
}

AccessFile::~AccessFile() = default;

std::unique_ptr<AccessRows> AccessFile::OpenTable(const std::string& name) const {
  MdbHandle* mdb = m_handle->mdb;
  for (unsigned i = 0; i < mdb->num_catalog; ++i) {
    MdbCatalogEntry* entry = Entry(mdb, i);
    if (entry->object_type != MDB_TABLE || name != entry->object_name) continue;
    MdbTableDef* table = mdb_read_table(entry);
    if (!table || !mdb_read_columns(table)) {
      if (table) mdb_free_tabledef(table);
      throw DataError("cannot read the definition of table \"" + name + "\" in " + m_path);
    }
    mdb_rewind_table(table);
    return std::make_unique<AccessTable>(table);
  }
  throw DataError("no table \"" + name + "\" in " + m_path);
}

}  // namespace qkdb
