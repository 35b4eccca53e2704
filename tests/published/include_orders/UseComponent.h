#pragma once

#include <quorvel/quorvel.h>

using namespace Quorvel;

/// A host that uses the published header. Headers of others may stand before and after it.
inline HRESULT UseComponent(VARIANT* value) {
  VariantInit(value);
  value->vt = VT_BOOL;
  value->boolVal = VARIANT_TRUE;
  IErrorInfo* error = nullptr;
  IClassFactory* factory = nullptr;
  const HRESULT result = QuorvelCreate(OLESTR("Quorvel.Remark"), IID__Remark, reinterpret_cast<void**>(&factory));
  return FAILED(result) ? GetErrorInfo(0, &error) : factory->LockServer(1);
}
