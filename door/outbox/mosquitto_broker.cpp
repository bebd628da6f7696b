#include "outbox/mosquitto_broker.hpp"

#include <fcntl.h>
#include <mosquitto.h>
#include <mqtt_protocol.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <random>
#include <stdexcept>
#include <utility>

namespace puerta {
namespace {

constexpr int kKeepAliveSeconds = 20;
constexpr int kFirstRefusal = 128;

struct Freed {
  void operator()(mosquitto* client) const { mosquitto_destroy(client); }
};

const char* OrNone(const std::string& text) {
  return text.empty() ? nullptr : text.c_str();
}

std::string WordsOf(int code) {
  return code == MOSQ_ERR_ERRNO ? std::strerror(errno) : mosquitto_strerror(code);
}

std::string FirstLineOf(const std::string& path) {
  std::ifstream file(path);
  std::string line;
  if (!std::getline(file, line)) throw std::runtime_error("no se puede leer «" + path + "»");
  return line;
}

class MosquittoBroker : public CallableBroker {
 public:
  explicit MosquittoBroker(const OutboxSettings& settings) : settings_(settings) {
    if (pipe2(bell_.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
      throw std::runtime_error(std::strerror(errno));
    }
    mosquitto_lib_init();
  }
  ~MosquittoBroker() override {
    Disconnect();
    mosquitto_lib_cleanup();
    for (const int end : bell_) close(end);
  }

  void Connect() override;
  void Disconnect() override;
  int Send(const std::string& topic, const std::string& payload) override;
  void Subscribe(const std::string& topic) override;
  std::vector<Happening> Wait(std::chrono::milliseconds most) override;
  std::chrono::milliseconds Spread(std::chrono::milliseconds pause) override;
  std::chrono::milliseconds Now() override;
  void Call() override;

 private:
  static MosquittoBroker& Of(void* self) { return *static_cast<MosquittoBroker*>(self); }
  static void OnConnect(mosquitto*, void* self, int code, int, const mosquitto_property*);
  static void OnDisconnect(mosquitto*, void* self, int code, const mosquitto_property*);
  static void OnPublish(mosquitto*, void* self, int letter, int code, const mosquitto_property*);
  static void OnMessage(mosquitto*, void* self, const mosquitto_message* message,
                        const mosquitto_property*);

  void Prepare();
  void PrepareTls();
  void Check(int code, const char* what);
  void Lose(std::string words);
  void Poll(std::chrono::milliseconds most);

  OutboxSettings settings_;
  std::unique_ptr<mosquitto, Freed> client_;
  std::array<int, 2> bell_{-1, -1};
  std::vector<Happening> happenings_;
  std::mt19937 chance_{std::random_device{}()};
};

// A new client for each connection: what waits is in the door's file, and nothing of an old connection's
// can come between.
void MosquittoBroker::Connect() {
  try {
    client_.reset(mosquitto_new(OrNone(settings_.client_id), true, this));
    if (!client_) throw std::runtime_error(std::strerror(errno));
    Prepare();
    Check(mosquitto_connect_bind_v5(client_.get(), settings_.host.c_str(), settings_.port,
                                    kKeepAliveSeconds, nullptr, nullptr),
          "no se puede conectar");
  } catch (const std::runtime_error& failure) {
    Lose(failure.what());
  }
}

void MosquittoBroker::Prepare() {
  mosquitto_int_option(client_.get(), MOSQ_OPT_PROTOCOL_VERSION, MQTT_PROTOCOL_V5);
  mosquitto_connect_v5_callback_set(client_.get(), OnConnect);
  mosquitto_disconnect_v5_callback_set(client_.get(), OnDisconnect);
  mosquitto_publish_v5_callback_set(client_.get(), OnPublish);
  mosquitto_message_v5_callback_set(client_.get(), OnMessage);
  if (!settings_.user.empty()) {
    const std::string password =
        settings_.password_file.empty() ? std::string() : FirstLineOf(settings_.password_file);
    Check(mosquitto_username_pw_set(client_.get(), settings_.user.c_str(), OrNone(password)),
          "usuario");
  }
  if (settings_.tls) PrepareTls();
}

void MosquittoBroker::PrepareTls() {
  if (settings_.authority_file.empty()) {
    mosquitto_int_option(client_.get(), MOSQ_OPT_TLS_USE_OS_CERTS, 1);
  }
  Check(mosquitto_tls_set(client_.get(), OrNone(settings_.authority_file), nullptr,
                          OrNone(settings_.certificate_file), OrNone(settings_.key_file), nullptr),
        "TLS");
}

void MosquittoBroker::Check(int code, const char* what) {
  if (code == MOSQ_ERR_SUCCESS) return;
  throw std::runtime_error(std::string(what) + ": " + WordsOf(code));
}

void MosquittoBroker::Disconnect() {
  if (client_) mosquitto_disconnect(client_.get());
  client_.reset();
  happenings_.clear();
}

int MosquittoBroker::Send(const std::string& topic, const std::string& payload) {
  mosquitto_property* properties = nullptr;
  mosquitto_property_add_byte(&properties, MQTT_PROP_PAYLOAD_FORMAT_INDICATOR, 1);
  mosquitto_property_add_string(&properties, MQTT_PROP_CONTENT_TYPE, "application/json");
  int letter = 0;
  const int code =
      mosquitto_publish_v5(client_.get(), &letter, topic.c_str(), static_cast<int>(payload.size()),
                           payload.data(), 1, false, properties);
  mosquitto_property_free_all(&properties);
  return code == MOSQ_ERR_SUCCESS ? letter : 0;
}

// Should it fail, no receipts come, and the courier minds that.
void MosquittoBroker::Subscribe(const std::string& topic) {
  mosquitto_subscribe(client_.get(), nullptr, topic.c_str(), 1);
}

void MosquittoBroker::Lose(std::string words) {
  happenings_.push_back({.sign = Sign::kLost, .words = std::move(words)});
}

void MosquittoBroker::Poll(std::chrono::milliseconds most) {
  std::array<pollfd, 2> ends{{{bell_[0], POLLIN, 0}, {-1, POLLIN, 0}}};
  if (client_) {
    ends[1].fd = mosquitto_socket(client_.get());
    if (mosquitto_want_write(client_.get())) ends[1].events |= POLLOUT;
    // The client looks after its own times once a second.
    most = std::min(most, std::chrono::milliseconds{1000});
  }
  poll(ends.data(), ends.size(), static_cast<int>(most.count()));
  std::array<char, 64> rung{};
  while (read(bell_[0], rung.data(), rung.size()) > 0) {
  }
}

std::vector<Happening> MosquittoBroker::Wait(std::chrono::milliseconds most) {
  if (happenings_.empty()) {
    Poll(most);
    if (client_) {
      const int code = mosquitto_loop(client_.get(), 0, 1);
      if (code != MOSQ_ERR_SUCCESS && happenings_.empty()) Lose(WordsOf(code));
    }
  }
  return std::exchange(happenings_, {});
}

std::chrono::milliseconds MosquittoBroker::Spread(std::chrono::milliseconds pause) {
  std::uniform_int_distribution<std::chrono::milliseconds::rep> some(pause.count() / 2,
                                                                     pause.count());
  return std::chrono::milliseconds{some(chance_)};
}

std::chrono::milliseconds MosquittoBroker::Now() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
}

void MosquittoBroker::Call() {
  const char ring = 1;
  // A full pipe has rung already.
  [[maybe_unused]] const ssize_t written = write(bell_[1], &ring, 1);
}

void MosquittoBroker::OnConnect(mosquitto*, void* self, int code, int, const mosquitto_property*) {
  if (code == 0) return Of(self).happenings_.push_back({.sign = Sign::kConnected});
  Of(self).Lose(std::string("el servidor no acepta: ") + mosquitto_reason_string(code));
}

void MosquittoBroker::OnDisconnect(mosquitto*, void* self, int code, const mosquitto_property*) {
  Of(self).Lose(std::string("se cortó: ") +
                (code >= kFirstRefusal ? mosquitto_reason_string(code) : mosquitto_strerror(code)));
}

void MosquittoBroker::OnPublish(mosquitto*, void* self, int letter, int code,
                                const mosquitto_property*) {
  Of(self).happenings_.push_back({.sign = Sign::kAcknowledged,
                                  .letter = letter,
                                  .refused = code >= kFirstRefusal,
                                  .nobody_listens = code == MQTT_RC_NO_MATCHING_SUBSCRIBERS,
                                  .words = mosquitto_reason_string(code)});
}

void MosquittoBroker::OnMessage(mosquitto*, void* self, const mosquitto_message* message,
                                const mosquitto_property*) {
  const auto length = static_cast<std::size_t>(message->payloadlen);
  Of(self).happenings_.push_back(
      {.sign = Sign::kReceived,
       .words = std::string(static_cast<const char*>(message->payload), length)});
}

}  // namespace

std::unique_ptr<CallableBroker> MakeBroker(const OutboxSettings& settings) {
  return std::make_unique<MosquittoBroker>(settings);
}

}  // namespace puerta
