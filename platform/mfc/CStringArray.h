#pragma once
// CStringArray: the framework's array of strings, with the operations of CArray.

#include "mfc/CArray.h"
#include "mfc/CString.h"

class CStringArray : public CArray<CString, const CString&> {};
