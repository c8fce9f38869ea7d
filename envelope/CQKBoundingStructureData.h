#pragma once
// CQKBoundingStructureData: the layer build-up of one envelope code: which constructions it is made of,
// outside to inside, how thick each layer is and by which factor its conductivity is corrected. A
// plain value.
//
// The layers are kept twice: as comma-separated texts without blanks (TIdS "12,7,40", HouDuS
// "20,240,20" in millimetres, XzXsS "1,1.25,1"), which are what the table stores and the exchange
// carries, and as three parallel arrays that MakeArray derives from the texts and the rest of the
// library reads. Nothing makes the three lists the same length. Editing the arrays does not change
// the texts: a caller who edits them writes the texts itself.
//
// Stream: Id, BSCId, TIdS, HouDuS, XzXsS, HaveDemoBMP, then every element of arrMaterial (each its own
// material stream), of arrHouDu and of arrXzXs, then strExtra. No element counts are written: reading
// fills only as many elements as the arrays already hold and never resizes them, so a fresh object
// reads no elements and takes the next item as strExtra. Size the arrays first (MakeArray on the same
// texts) to read them back.
// Named items: "BSCId", "TIdS", "HouDuS", "XzXsS", "HaveDemoBMP".

#include "QKExport.h"
#include "datakit/CAData.h"
#include "envelope/CQKMateralData.h"
#include "foundation/CLxArray.h"
#include "mfc/CString.h"

class QK_EXPORT CQKBoundingStructureData : public CAData {
 public:
  CQKBoundingStructureData();
  CQKBoundingStructureData(const CQKBoundingStructureData&) = default;
  CQKBoundingStructureData& operator=(const CQKBoundingStructureData&) = default;
  ~CQKBoundingStructureData() override = default;

  // The fields to 0 and "", the arrays emptied; strExtra is left as it is.
  void Init() override;
  // Rebuilds the three arrays from the texts. Each construction ID of TIdS (its leading digits; any
  // other piece counts as 0) is read from the construction table (CQKTimbering, its own connection)
  // into one reused construction, whose material part is appended whether or not the read found a
  // row: a missing construction repeats the layer before it, or the default material for the first.
  // Thicknesses and factors are read as numbers the same way; a malformed one becomes 0.
  void MakeArray();

  // Each returns 0; an item that cannot be read leaves its field as it was.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  long Id;           // the row key, copied after every read from the table
  long BSCId;        // the envelope code's ID
  CString TIdS;      // construction IDs, one per layer, outside to inside
  CString HouDuS;    // layer thicknesses, mm
  CString XzXsS;     // correction factors of the layers' conductivity
  int HaveDemoBMP;   // nonzero when a demonstration picture exists
  CLxArray<CQKMateralData> arrMaterial;  // from TIdS
  CLxArray<double> arrHouDu;             // from HouDuS, mm
  CLxArray<double> arrXzXs;              // from XzXsS
  CString strExtra;  // travels in the stream only; no column, no named item

 private:
  void InitData();
};
