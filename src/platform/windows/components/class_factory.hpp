#pragma once

#include <windows.h>

#include <unknwn.h>

#include "platform/windows/components/automation.hpp"
#include "platform/windows/components/public_classes.hpp"

namespace kestra {

// Makes the objects of one public class.
class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const PublicClass& row) : row_(row) {}
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;
  virtual ~ClassFactory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  References references_;
  const PublicClass& row_;
};

}  // namespace kestra
