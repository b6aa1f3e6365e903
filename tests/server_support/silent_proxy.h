// Stands between a client and a server of the loopback interface and can fall silent: it keeps its
// connections open and forwards nothing any more.
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace workbench::testing {

class SilentProxy {
 public:
  // Throws std::runtime_error.
  explicit SilentProxy(int serverPort);
  ~SilentProxy();
  SilentProxy(const SilentProxy&) = delete;
  SilentProxy& operator=(const SilentProxy&) = delete;

  int Port() const { return port_; }
  // Falls silent, on all connections and on new ones, when a client sends `text`, which is held
  // back; at once if it is empty.
  void FallSilentAt(std::string text);
  bool IsSilent() const { return isSilent_; }
  // Forwards again what new clients send. Connections of before stay silent.
  void Recover();
  // Forwards again on all connections, first what was held back.
  void Resume();

 private:
  void Forward();
  bool Silences(std::string_view sent);

  int serverPort_;
  int listener_ = -1;
  int port_ = 0;
  std::atomic<bool> isSilent_ = false;
  std::atomic<bool> resumes_ = false;
  std::atomic<bool> ends_ = false;
  std::mutex mutex_;
  std::string text_;  // empty: none
  std::thread thread_;
};

}  // namespace workbench::testing
