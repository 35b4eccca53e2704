#include "platform/com/Enumerator.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/com/CallGuard.h"
#include "platform/com/Object.h"

namespace quorvel::com {
namespace {

class Enumerator final : public Object<IEnumVARIANT> {
 public:
  Enumerator(ObjectSource source, std::size_t position)
      : Object(IID_IEnumVARIANT), m_source(std::move(source)), m_position(position) {}

  HRESULT QUORVEL_CALL Next(ULONG count, VARIANT* values, ULONG* fetched) noexcept override;
  HRESULT QUORVEL_CALL Skip(ULONG count) noexcept override;
  HRESULT QUORVEL_CALL Reset() noexcept override {
    m_position = 0;
    return S_OK;
  }
  HRESULT QUORVEL_CALL Clone(IEnumVARIANT** copy) noexcept override;

 private:
  [[nodiscard]] std::size_t Left() const {
    const std::size_t count = m_source.count();
    return count > m_position ? count - m_position : 0;
  }

  ObjectSource m_source;
  std::size_t m_position;
};

HRESULT Enumerator::Next(ULONG count, VARIANT* values, ULONG* fetched) noexcept {
  if (fetched != nullptr) *fetched = 0;
  if (values == nullptr || (fetched == nullptr && count > 1)) return E_POINTER;
  ULONG done = 0;
  const std::size_t begin = m_position;
  const HRESULT result = Guarded(IID_IEnumVARIANT, [&] {
    for (; done < count && Left() > 0; ++done) {
      IDispatch* object = m_source.at(m_position);
      ++m_position;
      VariantInit(&values[done]);
      values[done].vt = VT_DISPATCH;
      values[done].pdispVal = object;
    }
  });
  if (FAILED(result)) {
    while (done > 0) VariantClear(&values[--done]);
    m_position = begin;
    return result;
  }
  if (fetched != nullptr) *fetched = done;
  return done == count ? S_OK : S_FALSE;
}

HRESULT Enumerator::Skip(ULONG count) noexcept {
  std::size_t skipped = 0;
  const HRESULT result = Guarded(IID_IEnumVARIANT, [&] {
    skipped = std::min<std::size_t>(count, Left());
    m_position += skipped;
  });
  if (FAILED(result)) return result;
  return skipped == count ? S_OK : S_FALSE;
}

HRESULT Enumerator::Clone(IEnumVARIANT** copy) noexcept {
  if (copy == nullptr) return E_POINTER;
  *copy = nullptr;
  return Guarded(IID_IEnumVARIANT, [&] { *copy = std::make_unique<Enumerator>(m_source, m_position).release(); });
}

}  // namespace

IEnumVARIANT* MakeEnumerator(ObjectSource source) { return new Enumerator(std::move(source), 0); }

}  // namespace quorvel::com
