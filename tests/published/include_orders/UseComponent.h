#pragma once

#include <quorvel/quorvel.h>

using namespace Quorvel;

/// What a host does with the published header, whatever was included before and after it.
inline HRESULT UseComponent(VARIANT* value) {
  VariantInit(value);
  value->vt = VT_BOOL;
  value->boolVal = VARIANT_TRUE;
  IErrorInfo* error = nullptr;
  IClassFactory* factory = nullptr;
  const HRESULT result = QuorvelCreate(OLESTR("Quorvel.Remark"), IID__Remark, reinterpret_cast<void**>(&factory));
  return FAILED(result) ? GetErrorInfo(0, &error) : factory->LockServer(1);
}
