#pragma once

#include <asio.hpp>
#include <memory>
#include <string>

#include "program/endpoint.hpp"

namespace kestra::tool {

// The end of a cable to a printer: "tcp:HOST:PUERTO", or a serial port of this machine at so many bits a second.
// Throws std::exception when it cannot be had.
std::unique_ptr<impresora::Endpoint> MakePrinterEnd(asio::io_context& loop, const std::string& name,
                                                    int baud);

}  // namespace kestra::tool
