#include "notice/mail.h"

#include <curl/curl.h>

#include <algorithm>
#include <ctime>
#include <memory>

namespace notice {
namespace {

constexpr long kSecondsToConnect = 15;
constexpr long kSecondsInAll = 120;
constexpr long kGoAhead = 354;  // the server's answer to DATA

struct Closer {
  void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
  void operator()(curl_mime* mime) const { curl_mime_free(mime); }
};
using Handle = std::unique_ptr<CURL, Closer>;
using List = std::unique_ptr<curl_slist, Closer>;
using Mime = std::unique_ptr<curl_mime, Closer>;

std::string Base64(std::string_view bytes) {
  static constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    unsigned group = 0;
    const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
    for (std::size_t k = 0; k < 3; ++k)
      group = group << 8U | (k < count ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    for (std::size_t k = 0; k < 4; ++k) text += k <= count ? kDigits[group >> (18U - 6U * k) & 63U] : '=';
  }
  return text;
}

bool IsPlain(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char letter) { return ' ' <= letter && letter <= '~'; });
}

/// The moment in the form of mail, in universal time.
std::string DateHeader() {
  static constexpr const char* kDays[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  static constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[64];
  std::strftime(text, sizeof text, "%Y %H:%M:%S +0000", &parts);
  return std::string("Date: ") + kDays[parts.tm_wday] + ", " + std::to_string(parts.tm_mday) + " " +
         kMonths[parts.tm_mon] + " " + text;
}

std::string HostOf(const std::string& url) {
  std::size_t begin = url.find("://");
  begin = begin == std::string::npos ? 0 : begin + 3;
  if (begin < url.size() && url[begin] == '[') return url.substr(begin, url.find(']', begin) - begin + 1);
  return url.substr(begin, url.find_first_of(":/", begin) - begin);
}

bool IsThisMachine(const std::string& url) {
  const std::string host = HostOf(url);
  return host == "localhost" || host == "127.0.0.1" || host == "[::1]";
}

void AddPart(curl_mime* mime, const std::string& bytes, const char* type) {
  curl_mimepart* part = curl_mime_addpart(mime);
  curl_mime_data(part, bytes.data(), bytes.size());
  curl_mime_type(part, type);
  curl_mime_encoder(part, "base64");
}

/// The message in its parts; the handle owns what it was given to only when the whole is freed.
Mime PartsOf(CURL* handle, const Mail& mail) {
  Mime whole(curl_mime_init(handle));
  curl_mime* faces = curl_mime_init(handle);
  AddPart(faces, mail.text, "text/plain; charset=utf-8");
  AddPart(faces, mail.html, "text/html; charset=utf-8");
  curl_mimepart* body = curl_mime_addpart(whole.get());
  curl_mime_subparts(body, faces);
  curl_mime_type(body, "multipart/alternative");
  for (const Attachment& attachment : mail.attachments) {
    curl_mimepart* part = curl_mime_addpart(whole.get());
    curl_mime_data(part, attachment.bytes.data(), attachment.bytes.size());
    curl_mime_type(part, attachment.type.c_str());
    curl_mime_filename(part, attachment.name.c_str());
    curl_mime_encoder(part, "base64");
  }
  return whole;
}

List Headers(const Mail& mail) {
  curl_slist* list = nullptr;
  for (const std::string& line :
       {DateHeader(), "From: " + HeaderText("Frota") + " <" + mail.from + ">",
        "To: " + (mail.toName.empty() ? "" : HeaderText(mail.toName) + " ") + "<" + mail.to + ">",
        "Subject: " + HeaderText(mail.subject), "Message-ID: <" + mail.id + ">",
        std::string("Auto-Submitted: auto-generated")})
    list = curl_slist_append(list, line.c_str());
  return List(list);
}

std::string ReasonOf(CURLcode code, long answer, const char* details) {
  switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
      return "O servidor de correio não se encontra. Veja o endereço e a rede.";
    case CURLE_COULDNT_CONNECT:
    case CURLE_OPERATION_TIMEDOUT:
      return "O servidor de correio não responde. Veja o endereço, a porta e a rede, e tente de novo.";
    case CURLE_LOGIN_DENIED:
      return "O servidor de correio recusa o utilizador ou a senha.";
    case CURLE_USE_SSL_FAILED:
      return "O servidor de correio não cifra a ligação, e sem isso nada se envia.";
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
      return "O certificado do servidor de correio não merece confiança. Se é do seu escritório, indique o "
             "ficheiro da "
             "autoridade com --autoridade.";
    default:
      return "O servidor de correio recusou a mensagem" +
             (answer >= 400 ? " (" + std::to_string(answer) + ")" : "") + ": " + details + ".";
  }
}

}  // namespace

std::string HeaderText(const std::string& text) {
  if (IsPlain(text)) return text;
  constexpr std::size_t kBytesOfWord = 42;  // 56 letters: within the 75 of an encoded word
  std::string header;
  for (std::size_t begin = 0; begin < text.size();) {
    std::size_t end = std::min(begin + kBytesOfWord, text.size());
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
    header +=
        (header.empty() ? "" : "\r\n ") + ("=?utf-8?B?" + Base64(text.substr(begin, end - begin)) + "?=");
    begin = end;
  }
  return header;
}

DeliveryResult Deliver(const Mail& mail, const MailServer& server) {
  const Handle handle(curl_easy_init());
  if (!handle) return {Delivery::kNotSent, "Não há memória para enviar correio."};
  CURL* curl = handle.get();
  char details[CURL_ERROR_SIZE] = "";
  const List headers = Headers(mail);
  const Mime parts = PartsOf(curl, mail);
  const List to(curl_slist_append(nullptr, ("<" + mail.to + ">").c_str()));
  curl_easy_setopt(curl, CURLOPT_URL, server.url.c_str());
  curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "smtp,smtps");
  curl_easy_setopt(curl, CURLOPT_USE_SSL,
                   static_cast<long>(IsThisMachine(server.url) ? CURLUSESSL_TRY : CURLUSESSL_ALL));
  if (!server.authority.empty()) curl_easy_setopt(curl, CURLOPT_CAINFO, server.authority.c_str());
  if (!server.user.empty()) {
    curl_easy_setopt(curl, CURLOPT_USERNAME, server.user.c_str());
    curl_easy_setopt(curl, CURLOPT_PASSWORD, server.password.c_str());
  }
  curl_easy_setopt(curl, CURLOPT_MAIL_FROM, ("<" + mail.from + ">").c_str());
  curl_easy_setopt(curl, CURLOPT_MAIL_RCPT, to.get());
  curl_easy_setopt(curl, CURLOPT_HTTPHEADER, headers.get());
  curl_easy_setopt(curl, CURLOPT_MIMEPOST, parts.get());
  curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, details);
  curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, kSecondsToConnect);
  curl_easy_setopt(curl, CURLOPT_TIMEOUT, kSecondsInAll);
  curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
  const CURLcode code = curl_easy_perform(curl);
  if (code == CURLE_OK) return {Delivery::kTaken, ""};
  long answer = 0;
  curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &answer);
  if (answer == kGoAhead)
    return {Delivery::kUncertain, "A ligação perdeu-se depois da mensagem e antes da resposta do servidor."};
  return {Delivery::kNotSent, ReasonOf(code, answer, *details != '\0' ? details : curl_easy_strerror(code))};
}

}  // namespace notice
