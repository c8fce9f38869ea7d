#include "envelope/CQKBoundingStructureData.h"

#include <charconv>
#include <climits>
#include <string>

#include "construction/CQKTimbering.h"
#include "foundation/QKLoad.h"
#include "mfc/CStringArray.h"

namespace {

// The leading number of a piece of text, after any blanks and a "+": what the C library's
// conversions read, but with "." as the decimal point whatever the host's locale says. Anything that
// does not start with a number gives 0.
template <class Number>
Number LeadingNumber(const CString& piece) {
  std::string text;
  for (const wchar_t* p = piece.GetString(); *p != L'\0'; ++p) {
    // Only ASCII can be part of a number; anything else ends it.
    text += (*p > 0 && *p < 0x80) ? static_cast<char>(*p) : '\x01';
  }
  std::size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string::npos) return 0;
  if (text[start] == '+') ++start;
  Number value = 0;
  const auto result = std::from_chars(text.data() + start, text.data() + text.size(), value);
  return result.ec == std::errc() ? value : 0;
}

int LeadingInt(const CString& piece) {
  const long long value = LeadingNumber<long long>(piece);
  return value < INT_MIN || value > INT_MAX ? 0 : static_cast<int>(value);
}

}  // namespace

// InitData by name: the constructor sets this class's defaults whatever a derived Init would do.
CQKBoundingStructureData::CQKBoundingStructureData() { InitData(); }

void CQKBoundingStructureData::Init() { InitData(); }

void CQKBoundingStructureData::InitData() {
  Id = 0;
  BSCId = 0;
  TIdS = L"";
  HouDuS = L"";
  XzXsS = L"";
  HaveDemoBMP = 0;
  arrMaterial.RemoveAll();
  arrHouDu.RemoveAll();
  arrXzXs.RemoveAll();
}

void CQKBoundingStructureData::MakeArray() {
  arrMaterial.RemoveAll();
  arrHouDu.RemoveAll();
  arrXzXs.RemoveAll();

  CStringArray pieces;
  QKLoad::SplitString(TIdS, pieces, L',');
  // One construction for every layer, on purpose: a layer whose construction is gone takes the
  // material of the layer before it, so the list keeps its length and its order.
  CQKTimbering construction;
  for (int i = 0; i < pieces.GetSize(); ++i) {
    construction.ReadData(LeadingInt(pieces[i]));
    arrMaterial.Add(static_cast<const CQKMateralData&>(construction));
  }
  QKLoad::SplitString(HouDuS, pieces, L',');
  for (int i = 0; i < pieces.GetSize(); ++i) arrHouDu.Add(LeadingNumber<double>(pieces[i]));
  QKLoad::SplitString(XzXsS, pieces, L',');
  for (int i = 0; i < pieces.GetSize(); ++i) arrXzXs.Add(LeadingNumber<double>(pieces[i]));
}

ADataDef::ErrorCode CQKBoundingStructureData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  stream.ReadItem(&Id);
  stream.ReadItem(&BSCId);
  stream.ReadItem(&TIdS);
  stream.ReadItem(&HouDuS);
  stream.ReadItem(&XzXsS);
  stream.ReadItem(&HaveDemoBMP);
  for (int i = 0; i < arrMaterial.GetSize(); ++i) arrMaterial[i].DataInPut(stream);
  for (int i = 0; i < arrHouDu.GetSize(); ++i) stream.ReadItem(&arrHouDu[i]);
  for (int i = 0; i < arrXzXs.GetSize(); ++i) stream.ReadItem(&arrXzXs[i]);
  stream.ReadItem(&strExtra);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBoundingStructureData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(Id);
  stream.WriteItem(BSCId);
  stream.WriteItem(TIdS);
  stream.WriteItem(HouDuS);
  stream.WriteItem(XzXsS);
  stream.WriteItem(HaveDemoBMP);
  for (int i = 0; i < arrMaterial.GetSize(); ++i) arrMaterial[i].DataOutPut(stream);
  for (int i = 0; i < arrHouDu.GetSize(); ++i) stream.WriteItem(arrHouDu[i]);
  for (int i = 0; i < arrXzXs.GetSize(); ++i) stream.WriteItem(arrXzXs[i]);
  stream.WriteItem(strExtra);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBoundingStructureData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"BSCId", &BSCId);
  exchange.ReadItem(L"TIdS", &TIdS);
  exchange.ReadItem(L"HouDuS", &HouDuS);
  exchange.ReadItem(L"XzXsS", &XzXsS);
  exchange.ReadItem(L"HaveDemoBMP", &HaveDemoBMP);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBoundingStructureData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"BSCId", BSCId);
  exchange.WriteItem(L"TIdS", TIdS);
  exchange.WriteItem(L"HouDuS", HouDuS);
  exchange.WriteItem(L"XzXsS", XzXsS);
  exchange.WriteItem(L"HaveDemoBMP", HaveDemoBMP);
  return ADataDef::AD_OK;
}
