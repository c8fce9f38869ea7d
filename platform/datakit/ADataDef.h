#pragma once
// Result codes of every serialisation and copy operation of the data-object library.

namespace ADataDef {

enum ErrorCode {
  AD_OK = 0,               // success
  AD_ENDOFSTREAM = 1,      // a read found fewer bytes than the item needs
  AD_BADCOUNT = 2,         // a negative count, or one larger than the bytes that remain
  AD_OUTOFRANGE = 3,       // a value that does not fit the item's 32 bits (written wrapped)
  AD_NOITEM = 4,           // a named item the store does not hold
  AD_NOSTORE = 5,          // an exchange without a property store
  AD_WRONGTYPE = 6,        // a named item that cannot be read as the type asked for
  AD_INCOMPATIBLE = 23,    // a stream version newer than the reader knows, or a copy across classes
};

}  // namespace ADataDef
