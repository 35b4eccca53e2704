#include "tests/support/tds/StandInServer.h"

#include <sys/socket.h>

#include <list>
#include <map>
#include <mutex>
#include <stdexcept>
#include <thread>

#include "tests/support/tds/StandInSession.h"
#include "tests/support/tds/TdsSocket.h"

namespace quorvel::test {
namespace {

constexpr std::uint8_t kBatch = 0x01;
constexpr std::uint8_t kCall = 0x03;
constexpr std::uint8_t kAttention = 0x06;
constexpr std::uint8_t kLogin = 0x10;
constexpr std::uint8_t kPreLogin = 0x12;

enum class Fault { None, DropAtRequest, DropAfterRequest, DropAmidRows };

/// What is to be done with one request.
struct Treatment {
  Fault fault = Fault::None;
  std::chrono::milliseconds delay{0};
  bool lowerCaseNames = false;
  std::optional<std::vector<StandInServer::Part>> answer;
};

}  // namespace

class StandInServer::Implementation {
 public:
  explicit Implementation(std::string databaseFile)
      : m_databaseFile(std::move(databaseFile)), m_listener(tds::Listen()) {
    m_port = tds::PortOf(m_listener.Get());
    answers["SELECT SCHEMA_NAME()"] = {
        {Part::Kind::Rows, {}, 0, {{"", ado::DataType::VarWChar}}, {{std::string("dbo")}}}};
    m_acceptor = std::thread([this] { Accept(); });
  }

  ~Implementation() {
    ::shutdown(m_listener.Get(), SHUT_RDWR);
    m_acceptor.join();
    Drop();
    for (std::thread& client : m_threads) client.join();
  }

  void Drop() {
    const std::lock_guard lock(m_mutex);
    for (const int socket : m_open) ::shutdown(socket, SHUT_RDWR);
  }

  [[nodiscard]] Treatment Note(const std::string& request) {
    const std::lock_guard lock(m_mutex);
    requests.push_back(request);
    Treatment treatment{Fault::None, delay, lowerCaseNames, std::nullopt};
    if (m_requestsToFault > 0 && --m_requestsToFault == 0) treatment.fault = m_fault;
    if (const auto found = answers.find(request); found != answers.end()) treatment.answer = found->second;
    return treatment;
  }

  void Plan(Fault fault, int request) {
    const std::lock_guard lock(m_mutex);
    m_fault = fault;
    m_requestsToFault = request;
  }

  [[nodiscard]] std::uint16_t Port() const noexcept { return m_port; }

  std::mutex m_mutex;  ///< of everything below
  std::vector<std::string> requests;
  int logins = 0;
  std::chrono::milliseconds delay{0};
  bool lowerCaseNames = false;
  std::map<std::string, std::vector<Part>> answers;

 private:
  void Accept() {
    while (true) {
      tds::Socket client(::accept(m_listener.Get(), nullptr, nullptr));
      if (!client) return;
      // Known before its thread runs: whoever ends every connection must not miss one that is just being made.
      const std::lock_guard lock(m_mutex);
      m_open.push_back(client.Get());
      m_threads.emplace_back(
          [this, socket = std::make_shared<tds::Socket>(std::move(client))] { Serve(socket->Get()); });
    }
  }

  void Serve(int socket) {
    try {
      if (LogIn(socket)) AnswerRequests(socket);
    } catch (const std::exception& error) {
      tds::Writer answer;
      answer.Message({"", 50000, std::string("stand-in: ") + error.what(), 0}, 20);
      answer.Done(tds::Writer::Last::InBatch, {.error = true});
      tds::Send(socket, answer.Bytes());
    }
    ::shutdown(socket, SHUT_RDWR);
    const std::lock_guard lock(m_mutex);
    m_open.remove(socket);
  }

  bool LogIn(int socket) {
    auto message = tds::Receive(socket);
    if (message && message->type == kPreLogin) {
      tds::Send(socket, tds::PreLoginAnswer());
      message = tds::Receive(socket);
    }
    if (!message || message->type != kLogin) return false;
    const tds::Login login = tds::ReadLogin(message->bytes);
    const bool isWelcome = login.user == kUser && login.password == kPassword;
    tds::Writer answer;
    if (isWelcome) {
      answer.DatabaseChanged(login.database);
      answer.LoggedIn();
      const std::lock_guard lock(m_mutex);
      ++logins;
    } else {
      answer.Message({"", 18456, "Login failed for user '" + login.user + "'.", 1}, 14);
    }
    answer.Done(tds::Writer::Last::InBatch, {.error = !isWelcome});
    tds::Send(socket, answer.Bytes());
    return isWelcome;
  }

  void AnswerRequests(int socket) {
    tds::StandInSession session(m_databaseFile);
    while (const auto message = tds::Receive(socket)) {
      if (message->type == kAttention) {
        AnswerAttention(socket);
      } else if (!AnswerRequest(socket, session, *message)) {
        return;
      }
    }
  }

  static void AnswerAttention(int socket) {
    tds::Writer answer;
    answer.Done(tds::Writer::Last::InBatch, {.attention = true});
    tds::Send(socket, answer.Bytes());
  }

  /// False when the connection is to be dropped.
  bool AnswerRequest(int socket, tds::StandInSession& session, const tds::Message& message) {
    tds::Call call;
    std::string request;
    if (message.type == kCall) {
      call = tds::ReadCall(message.bytes);
      request = "call " + call.procedure;
    } else if (message.type == kBatch) {
      tds::Reader reader(message.bytes);
      reader.SkipHeaders();
      request = reader.RestAsText();
    } else {
      throw std::runtime_error("a kind of request that it does not know");
    }
    const Treatment treatment = Note(request);
    if (treatment.fault == Fault::DropAtRequest) return false;
    // Who sends something while he waits for an answer wants it no more.
    if (treatment.delay.count() > 0 && tds::WaitForClient(socket, treatment.delay)) return true;
    tds::Writer answer;
    if (treatment.answer) {
      tds::WriteParts(*treatment.answer, answer);
    } else if (message.type == kCall) {
      session.RunCall(call, treatment.lowerCaseNames, answer);
    } else {
      session.RunBatch(request, answer);
    }
    if (treatment.fault == Fault::DropAfterRequest) return false;
    const bool isWhole = treatment.fault == Fault::None;
    const std::string_view bytes = answer.Bytes();
    tds::Send(socket, isWhole ? bytes : bytes.substr(0, answer.AmidRows()), isWhole);
    return isWhole;
  }

  std::string m_databaseFile;
  tds::Socket m_listener;
  std::uint16_t m_port = 0;
  std::thread m_acceptor;
  std::list<int> m_open;
  std::list<std::thread> m_threads;
  Fault m_fault = Fault::None;
  int m_requestsToFault = 0;
};

StandInServer::StandInServer(std::string databaseFile)
    : m_implementation(std::make_unique<Implementation>(std::move(databaseFile))) {}

StandInServer::~StandInServer() = default;

std::string StandInServer::Address() const { return "127.0.0.1," + std::to_string(m_implementation->Port()); }

std::vector<std::string> StandInServer::Requests() const {
  const std::lock_guard lock(m_implementation->m_mutex);
  return m_implementation->requests;
}

void StandInServer::ForgetRequests() {
  const std::lock_guard lock(m_implementation->m_mutex);
  m_implementation->requests.clear();
}

int StandInServer::Logins() const {
  const std::lock_guard lock(m_implementation->m_mutex);
  return m_implementation->logins;
}

void StandInServer::DropConnections() { m_implementation->Drop(); }

void StandInServer::DropAtRequest(int request) { m_implementation->Plan(Fault::DropAtRequest, request); }

void StandInServer::DropAfterRequest(int request) { m_implementation->Plan(Fault::DropAfterRequest, request); }

void StandInServer::DropAmidRows(int request) { m_implementation->Plan(Fault::DropAmidRows, request); }

void StandInServer::DelayAnswers(std::chrono::milliseconds delay) {
  const std::lock_guard lock(m_implementation->m_mutex);
  m_implementation->delay = delay;
}

void StandInServer::AnswerWith(std::string request, std::vector<Part> answer) {
  const std::lock_guard lock(m_implementation->m_mutex);
  m_implementation->answers[std::move(request)] = std::move(answer);
}

void StandInServer::UseLowerCaseNames() {
  const std::lock_guard lock(m_implementation->m_mutex);
  m_implementation->lowerCaseNames = true;
}

}  // namespace quorvel::test
