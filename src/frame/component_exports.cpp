// Entry points of the platform's component system.

#include "frame/export_guard.hpp"
#include "kestra/kestra.h"
#include "platform/seam/components.hpp"

int32_t KESTRA_CALL DllRegisterServer() {
  return kestra::RegisterComponents();
}

int32_t KESTRA_CALL DllUnregisterServer() {
  return kestra::UnregisterComponents();
}

int32_t KESTRA_CALL DllGetClassObject(const void* clase, const void* interfaz, void** objeto) {
  return kestra::ComponentFactory(clase, interfaz, objeto);
}

int32_t KESTRA_CALL DllCanUnloadNow() {
  return kestra::WithoutFailing(1, [] {
    const bool in_use = kestra::ComponentsInUse() || kestra::Instance().holds_port.load();
    return in_use ? 1 : 0;
  });
}
