// One thread accepts connections, and each connection has a thread that reads requests and answers them one by one.

#include "tests/support/tds/StandInServer.h"

#include <sys/socket.h>

#include <exception>

#include "tests/support/tds/StandInSession.h"

namespace quorvel::test {
namespace {

constexpr std::uint8_t kAttention = 0x06;
constexpr std::uint8_t kLogin = 0x10;
constexpr std::uint8_t kPreLogin = 0x12;

}  // namespace

StandInServer::StandInServer(std::string databaseFile)
    : m_databaseFile(std::move(databaseFile)), m_listener(tds::Listen()) {
  m_acceptor = std::thread([this] { Accept(); });
}

StandInServer::~StandInServer() {
  ::shutdown(m_listener.Get(), SHUT_RDWR);
  m_acceptor.join();
  DropConnections();
  for (std::thread& client : m_clients) client.join();
}

std::string StandInServer::Address() const { return "127.0.0.1," + std::to_string(tds::PortOf(m_listener.Get())); }

std::vector<std::string> StandInServer::Requests() const {
  const std::lock_guard lock(m_mutex);
  return m_requests;
}

void StandInServer::ForgetRequests() {
  const std::lock_guard lock(m_mutex);
  m_requests.clear();
}

int StandInServer::Logins() const {
  const std::lock_guard lock(m_mutex);
  return m_logins;
}

void StandInServer::DropConnections() {
  const std::lock_guard lock(m_mutex);
  for (const int socket : m_open) ::shutdown(socket, SHUT_RDWR);
}

void StandInServer::DelayAnswers(std::chrono::milliseconds delay) {
  const std::lock_guard lock(m_mutex);
  m_treatment.delay = delay;
}

void StandInServer::AnswerWith(std::string request, std::vector<Part> answer) {
  const std::lock_guard lock(m_mutex);
  m_answers[std::move(request)] = std::move(answer);
}

void StandInServer::Plan(Fault fault, int request) {
  const std::lock_guard lock(m_mutex);
  m_fault = fault;
  m_requestsToFault = request;
}

StandInServer::Treatment StandInServer::Note(const std::string& request) {
  const std::lock_guard lock(m_mutex);
  m_requests.push_back(request);
  Treatment treatment = m_treatment;
  if (m_requestsToFault > 0 && --m_requestsToFault == 0) treatment.fault = m_fault;
  if (const auto found = m_answers.find(request); found != m_answers.end()) treatment.answer = found->second;
  return treatment;
}

void StandInServer::Accept() {
  while (true) {
    tds::Socket client(::accept(m_listener.Get(), nullptr, nullptr));
    if (!client) return;
    // Noted before its thread runs, so that DropConnections cannot miss it.
    const std::lock_guard lock(m_mutex);
    m_open.push_back(client.Get());
    m_clients.emplace_back([this, socket = std::make_shared<tds::Socket>(std::move(client))] { Serve(socket->Get()); });
  }
}

void StandInServer::Serve(int socket) {
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

bool StandInServer::LogIn(int socket) {
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
    ++m_logins;
  } else {
    answer.Message({"", 18456, "Login failed for user '" + login.user + "'.", 1}, 14);
  }
  answer.Done(tds::Writer::Last::InBatch, {.error = !isWelcome});
  tds::Send(socket, answer.Bytes());
  return isWelcome;
}

void StandInServer::AnswerRequests(int socket) {
  tds::StandInSession session(m_databaseFile);
  while (const auto message = tds::Receive(socket)) {
    if (message->type == kAttention) {
      tds::Writer answer;
      answer.Done(tds::Writer::Last::InBatch, {.attention = true});
      tds::Send(socket, answer.Bytes());
    } else if (!AnswerRequest(socket, session, *message)) {
      return;
    }
  }
}

bool StandInServer::AnswerRequest(int socket, tds::StandInSession& session, const tds::Message& message) {
  const tds::Request request = tds::ReadRequest(message);
  const Treatment treatment = Note(request.isCall ? "call " + request.text : request.text);
  if (treatment.fault == Fault::DropAtRequest) return false;
  // A client that sends something while it waits for an answer has cancelled the request.
  if (treatment.delay.count() > 0 && tds::WaitForClient(socket, treatment.delay)) return true;
  tds::Writer answer;
  if (treatment.answer) {
    tds::WriteParts(*treatment.answer, answer);
  } else {
    session.Run(request, answer);
  }
  if (treatment.fault == Fault::DropAfterRequest) return false;
  const bool isWhole = treatment.fault == Fault::None;
  const std::string_view bytes = answer.Bytes();
  tds::Send(socket, isWhole ? bytes : bytes.substr(0, answer.AmidRows()), isWhole);
  return isWhole;
}

}  // namespace quorvel::test
