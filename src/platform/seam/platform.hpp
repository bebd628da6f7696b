#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/seam/clock.hpp"
#include "platform/seam/files.hpp"
#include "platform/seam/operator.hpp"
#include "platform/seam/serial_port.hpp"

namespace kestra {

// The variable of the process's environment that names it.
constexpr const char* kDeviceVariable = "KESTRA_DISPOSITIVO";

// The world behind six interfaces.
class Platform {
 public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform() = default;

  // Makes the calling thread ready for the library, by way of the platform's component system where it
  // has one. Throws Failure when that cannot be done.
  virtual void BeginStartUp() {}

  // Undoes what only start-up needs.
  virtual void EndStartUp() {}

  // Ends the thread's use of the platform.
  virtual void ShutDown() {}

  // The device that whoever started the host has named for it, before any that its own file names; or nothing.
  virtual std::string DeviceInstead() { return {}; }

  // A closed port set up as told. Throws Failure when the settings cannot be had.
  virtual std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) = 0;

  virtual Clock& GetClock() = 0;
  virtual Operator& GetOperator() = 0;
  virtual ProfileFile& GetProfile() = 0;
  virtual LogFile& GetLog() = 0;
  virtual JournalFile& GetJournalFile() = 0;
};

// The platform that this library was built for.
std::unique_ptr<Platform> MakeSystemPlatform();

// The platform's component system, as the library's entry points answer it.
std::int32_t RegisterComponents();
std::int32_t UnregisterComponents();
std::int32_t InstallComponents(bool install, const void* part);
std::int32_t ComponentFactory(const void* class_id, const void* interface_id, void** object);

// True while an object that the platform made for a host is alive.
bool ComponentsInUse();

}  // namespace kestra
