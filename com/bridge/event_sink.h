#pragma once

#include <memory>

#include "bridge/type_shape.h"

namespace arap::com {

/// What stands at a connection point: hears by DISPID, tells an EventSink by event. Events outside the contract are
/// taken without a word.
class EventSinkObject final : public IDispatch {
 public:
  EventSinkObject(EventSink& sink, std::shared_ptr<const TypeShape> events)
      : sink_(&sink), events_(std::move(events)) {}

  /// The sink hears nothing more, however long the source keeps this object.
  void silence() noexcept { sink_ = nullptr; }

  // Answers for the source interface's own identifier too: sources ask for that one.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return shares_.add(); }
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pnCount) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT nIndex, LCID locale, ITypeInfo** out) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT nNames, LCID locale, DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID null_id, LCID locale, WORD flags, DISPPARAMS* params,
                                   VARIANT* answer, EXCEPINFO* info, UINT* pnBad) override;

 private:
  ~EventSinkObject() = default;
  void tell(Event event, const DISPPARAMS& params);

  LiveObject live_;
  ShareCount shares_;
  Apartment apartment_;
  EventSink* sink_;
  std::shared_ptr<const TypeShape> events_;
};

}  // namespace arap::com
