// The loop for those who have sockets in it.
#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>

#include "service/loop.hpp"

namespace puerta {

class Loop::Inside {
 public:
  boost::asio::io_context context{1};
  boost::asio::signal_set signals{context};
};

}  // namespace puerta
