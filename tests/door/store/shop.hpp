#pragma once

#include <memory>
#include <string>
#include <vector>

#include "folder.hpp"
#include "store/store.hpp"

namespace puerta::prueba {

inline Moment At(int second) {
  return Moment{std::chrono::seconds{1'790'000'000 + second}};
}

inline Request Sale(const std::string& key, const std::string& printer = "caja1",
                    const std::string& body = R"({"total":"10.00"})") {
  return {.till = "t1",
          .key = key,
          .printer = printer,
          .operation = "comprobante",
          .hash = "h" + body,
          .body = body};
}

// A door's memory that can be closed and opened again, as after a death.
class Shop {
 public:
  explicit Shop(bool publishes = true) : options_{folder_ / "p.db", publishes} { Open(); }

  void Open() {
    store_.reset();
    store_ = OpenStore(options_);
  }

  Store* operator->() { return store_.get(); }
  const std::string& Path() const { return options_.path; }

  std::int64_t Take(const std::string& key, const std::string& printer = "caja1") {
    return store_->Accept(Sale(key, printer), At(0)).job.number;
  }
  std::int64_t Printing(const std::string& key, const std::string& printer = "caja1") {
    const std::int64_t number = Take(key, printer);
    store_->Begin(number, R"({"x":1})", At(1));
    return number;
  }
  std::int64_t Done(const std::string& key, const std::string& printer = "caja1") {
    const std::int64_t number = Printing(key, printer);
    store_->Finish(number, {.state = State::kDone, .answer = "{}"}, At(2));
    return number;
  }
  State StateOf(std::int64_t number) { return store_->Find(number).value().state; }

 private:
  Folder folder_;
  StoreOptions options_;
  std::unique_ptr<Store> store_;
};

inline std::vector<std::int64_t> NumbersOf(const std::vector<Job>& jobs) {
  std::vector<std::int64_t> numbers;
  for (const Job& job : jobs) numbers.push_back(job.number);
  return numbers;
}

}  // namespace puerta::prueba
