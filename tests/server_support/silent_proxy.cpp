#include "tests/server_support/silent_proxy.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>
#include <utility>
#include <vector>

namespace workbench::testing {
namespace {

sockaddr_in Loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

struct Pair {
  int client = -1;
  int server = -1;
  bool isSilent = false;
  std::string heldBack = {};  // of the client
};

// Empty when the other end has closed.
std::string Received(int socket) {
  std::string bytes(65536, '\0');
  const ssize_t size = recv(socket, bytes.data(), bytes.size(), 0);
  bytes.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return bytes;
}

bool SendAll(int socket, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t size = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (size <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(size));
  }
  return true;
}

}  // namespace

SilentProxy::SilentProxy(int serverPort) : serverPort_(serverPort) {
  listener_ = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = Loopback(0);
  socklen_t size = sizeof(address);
  auto* generic = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener_, generic, size) != 0 || listen(listener_, 16) != 0 ||
      getsockname(listener_, generic, &size) != 0) {
    close(listener_);
    throw std::runtime_error("no port for the proxy");
  }
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Forward(); });
}

SilentProxy::~SilentProxy() {
  ends_ = true;
  thread_.join();
  close(listener_);
}

void SilentProxy::FallSilentAt(std::string text) {
  const std::lock_guard lock(mutex_);
  isSilent_ = text.empty();
  text_ = std::move(text);
}

void SilentProxy::Recover() {
  const std::lock_guard lock(mutex_);
  isSilent_ = false;
  text_.clear();
}

void SilentProxy::Resume() {
  Recover();
  resumes_ = true;
}

bool SilentProxy::Silences(std::string_view sent) {
  const std::lock_guard lock(mutex_);
  if (!text_.empty() && sent.find(text_) != std::string_view::npos) isSilent_ = true;
  return isSilent_;
}

void SilentProxy::Forward() {
  std::vector<Pair> pairs;
  while (!ends_) {
    std::vector<pollfd> waiting{{listener_, POLLIN, 0}};
    for (const Pair& pair : pairs) {
      const short events = pair.isSilent ? 0 : POLLIN;
      waiting.push_back({pair.client, events, 0});
      waiting.push_back({pair.server, events, 0});
    }
    poll(waiting.data(), waiting.size(), 10);
    if (isSilent_) {
      for (Pair& pair : pairs) pair.isSilent = true;
    } else if (resumes_.exchange(false)) {
      for (Pair& pair : pairs) {
        pair.isSilent = false;
        SendAll(pair.server, std::exchange(pair.heldBack, {}));
      }
      continue;
    }
    for (std::size_t i = 0; i < pairs.size(); ++i) {
      Pair& pair = pairs[i];
      if (pair.isSilent || pair.client < 0) continue;
      bool isOpen = true;
      if (waiting[2 * i + 1].revents != 0) {
        const std::string sent = Received(pair.client);
        pair.isSilent = Silences(sent);
        if (pair.isSilent) pair.heldBack = sent;
        isOpen = !sent.empty() && (pair.isSilent || SendAll(pair.server, sent));
      }
      if (isOpen && !pair.isSilent && waiting[2 * i + 2].revents != 0) {
        const std::string answer = Received(pair.server);
        isOpen = !answer.empty() && SendAll(pair.client, answer);
      }
      if (isOpen) continue;
      close(std::exchange(pair.client, -1));
      close(std::exchange(pair.server, -1));
    }
    if (waiting[0].revents == 0) continue;
    Pair pair{accept(listener_, nullptr, nullptr), socket(AF_INET, SOCK_STREAM, 0), isSilent_};
    const sockaddr_in server = Loopback(serverPort_);
    if (!pair.isSilent &&
        connect(pair.server, reinterpret_cast<const sockaddr*>(&server), sizeof(server)) != 0) {
      pair.isSilent = true;
    }
    pairs.push_back(pair);
  }
  for (const Pair& pair : pairs) {
    if (pair.client >= 0) close(pair.client);
    if (pair.server >= 0) close(pair.server);
  }
}

}  // namespace workbench::testing
