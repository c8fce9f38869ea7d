// qkdb: the command-line tool over QKModelDataBase, for engineers and host developers.

#include <cstdio>
#include <string_view>

#include "mfc/CString.h"

namespace {

const wchar_t* kUsage =
    L"usage: qkdb <command> [options]\n"
    L"\n"
    L"The reference database of a building thermal-load design system, from the command line.\n"
    L"\n"
    L"commands:\n"
    L"  --help, -h       show this text\n"
    L"  --version        show the version (the tool and the library are released together)\n";

void Print(std::FILE* to, const wchar_t* text) { std::fputs(CString(text).ToUtf8().c_str(), to); }

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    Print(stderr, kUsage);
    return 2;
  }
  std::string_view command = argv[1];
  if (command == "--help" || command == "-h") {
    Print(stdout, kUsage);
    return 0;
  }
  if (command == "--version") {
    CString text;
    text.Format(L"qkdb %hs\n", QKDB_VERSION);
    Print(stdout, text);
    return 0;
  }
  CString text;
  text.Format(L"qkdb: unknown command \"%hs\"\n\n", argv[1]);
  Print(stderr, text + kUsage);
  return 2;
}
