#include "construction/tagQKWALL.h"

namespace {

// The stream's order: the three results, then the harmonic arrays and the response arrays, each set
// interleaved element by element.
template <class Visit>
void WalkStream(tagQKWALL& w, Visit&& item) {
  item(w.CrXs);
  item(w.CrSj);
  item(w.CrYc);
  for (int i = 0; i < 12; ++i) {
    item(w.Harmonic1[i]);
    item(w.Harmonic2[i]);
    item(w.Harmonic3[i]);
    item(w.Harmonic4[i]);
  }
  for (int j = 0; j < 24; ++j) {
    item(w.Response1[j]);
    item(w.Response2[j]);
    item(w.Response3[j]);
    item(w.Response4[j]);
  }
}

}  // namespace

ADataDef::ErrorCode tagQKWALL::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  WalkStream(*this, [&stream](double& v) { stream.ReadItem(&v); });
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode tagQKWALL::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  WalkStream(*this, [&stream](double& v) { stream.WriteItem(v); });
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode tagQKWALL::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"CrXs", &CrXs);
  exchange.ReadItem(L"CrSj", &CrSj);
  exchange.ReadItem(L"CrYc", &CrYc);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode tagQKWALL::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"CrXs", CrXs);
  exchange.WriteItem(L"CrSj", CrSj);
  exchange.WriteItem(L"CrYc", CrYc);
  return ADataDef::AD_OK;
}
