#include "host/sample/Advice.h"

#include <sqlite3.h>

namespace sample {
namespace {

constexpr const char* kWait = "Try again when the other program has finished.";

}  // namespace

wxString AdviceOnCall(long number) {
  switch (number) {
    case -2147217871:  // a timeout
      return kWait;
    case -2147217865:  // no such table
    case -2147217900:  // no such procedure, or no right to call it
      return "quorvel doctor names what is missing in the database.";
    case -2147217843:  // the login is refused
    case 110:
      return "quorvel settings shows the settings and who may read them.";
    case -2147467259:  // the connection or the disk
      return "quorvel doctor finds the reason. Try again when it is gone: the connection is then opened anew.";
    default:
      return {};
  }
}

wxString AdviceOnFile(int result) {
  switch (result & 0xFF) {
    case SQLITE_ERROR:
      return "quorvel init --sample puts them into the database.";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return kWait;
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
    case SQLITE_READONLY:
      return "This user must be able to write the file and its folder, where two files stand beside it.";
    case SQLITE_NOTADB:
      return "The file is something else. quorvel settings Database=FILE names another one.";
    case SQLITE_CORRUPT:
      return "The file is damaged; restore it from a backup.";
    case SQLITE_IOERR:
    case SQLITE_FULL:
      return "The disk has failed or is full. Your administrator can look after it.";
    default:
      return {};
  }
}

}  // namespace sample
