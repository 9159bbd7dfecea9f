// The internet calls of the release check over libcurl: a session keeps the agent and proxy choice, an
// opened URL keeps the body it received, and reads hand it out piece by piece.
#include "dcljexc/jexinet.h"

#include <curl/curl.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace dcljexc {

struct TInternetHandle {
    enum class TKind { Session, Url } Kind;
    explicit TInternetHandle(TKind kind) : Kind(kind) {}
    // Session
    std::string Agent;
    uint32_t AccessType = INTERNET_OPEN_TYPE_DIRECT;
    std::string Proxy;
    std::string ProxyBypass;
    // Url
    std::vector<char> Body;
    size_t Position = 0;
};

namespace {

long TimeoutFromEnvironment(const char* name, long fallback) {
    const char* text = std::getenv(name);
    if (!text || !*text) return fallback;
    errno = 0;
    char* end = nullptr;
    long value = std::strtol(text, &end, 10);
    if (errno != 0 || *end != '\0' || value <= 0) return fallback;
    return value;
}

struct TTransfer {
    std::vector<char>* Body;
    bool Cut = false;
};

size_t WriteBody(char* data, size_t size, size_t count, void* user) {
    auto* transfer = static_cast<TTransfer*>(user);
    const size_t bytes = size * count;
    const size_t room = InternetMaxBody - std::min(InternetMaxBody, transfer->Body->size());
    if (bytes > room) {
        // Enough is kept; returning short ends the transfer, which Open then treats as complete.
        transfer->Body->insert(transfer->Body->end(), data, data + room);
        transfer->Cut = true;
        return 0;
    }
    transfer->Body->insert(transfer->Body->end(), data, data + bytes);
    return bytes;
}

struct TCurlDeleter {
    void operator()(CURL* c) const { curl_easy_cleanup(c); }
};
struct TSlistDeleter {
    void operator()(curl_slist* l) const { curl_slist_free_all(l); }
};

bool AppendHeader(std::unique_ptr<curl_slist, TSlistDeleter>& list, const std::string& line) {
    curl_slist* grown = curl_slist_append(list.get(), line.c_str());
    if (!grown) return false;
    list.release();
    list.reset(grown);
    return true;
}

} // namespace

HINTERNET InternetOpen(const std::string& Agent, uint32_t AccessType, const std::string& Proxy,
                       const std::string& ProxyBypass, uint32_t Flags) {
    if (AccessType != INTERNET_OPEN_TYPE_PRECONFIG && AccessType != INTERNET_OPEN_TYPE_DIRECT &&
        AccessType != INTERNET_OPEN_TYPE_PROXY)
        return nullptr;
    if (AccessType == INTERNET_OPEN_TYPE_PROXY && Proxy.empty()) return nullptr;
    try {
        auto* h = new TInternetHandle(TInternetHandle::TKind::Session);
        h->Agent = Agent;
        h->AccessType = AccessType;
        h->Proxy = Proxy;
        h->ProxyBypass = ProxyBypass;
        return h;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

HINTERNET InternetOpenUrl(HINTERNET Internet, const std::string& Url, const std::string& Headers,
                          uint32_t Flags, uintptr_t Context) {
    if (!Internet || Internet->Kind != TInternetHandle::TKind::Session || Url.empty()) return nullptr;
    try {
        std::unique_ptr<CURL, TCurlDeleter> curl(curl_easy_init());
        if (!curl) return nullptr;
        CURL* c = curl.get();

        std::unique_ptr<curl_slist, TSlistDeleter> headers;
        std::string cacheControl;
        if (Flags & INTERNET_FLAG_RELOAD) cacheControl = "no-cache";
        if (Flags & INTERNET_FLAG_RESYNCHRONIZE)
            cacheControl += cacheControl.empty() ? "max-age=0" : ", max-age=0";
        if (!cacheControl.empty() && !AppendHeader(headers, "Cache-Control: " + cacheControl)) return nullptr;
        if ((Flags & INTERNET_FLAG_PRAGMA_NOCACHE) && !AppendHeader(headers, "Pragma: no-cache"))
            return nullptr;
        size_t start = 0;
        while (start < Headers.size()) {
            size_t end = Headers.find_first_of("\r\n", start);
            if (end == std::string::npos) end = Headers.size();
            if (end > start && !AppendHeader(headers, Headers.substr(start, end - start))) return nullptr;
            start = end + 1;
        }

        auto handle = std::make_unique<TInternetHandle>(TInternetHandle::TKind::Url);
        TTransfer transfer{&handle->Body};
        char error[CURL_ERROR_SIZE] = {};

        curl_easy_setopt(c, CURLOPT_URL, Url.c_str());
        curl_easy_setopt(c, CURLOPT_PROTOCOLS_STR, "http,https");
        curl_easy_setopt(c, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
        curl_easy_setopt(c, CURLOPT_FOLLOWLOCATION, 1L);
        curl_easy_setopt(c, CURLOPT_MAXREDIRS, 10L);
        curl_easy_setopt(c, CURLOPT_FAILONERROR, 1L);
        curl_easy_setopt(c, CURLOPT_NOSIGNAL, 1L);
        curl_easy_setopt(c, CURLOPT_USERAGENT, Internet->Agent.c_str());
        if (Internet->AccessType == INTERNET_OPEN_TYPE_DIRECT) {
            curl_easy_setopt(c, CURLOPT_PROXY, ""); // "" switches off proxies named in the environment
        } else if (Internet->AccessType == INTERNET_OPEN_TYPE_PROXY) {
            curl_easy_setopt(c, CURLOPT_PROXY, Internet->Proxy.c_str());
            if (!Internet->ProxyBypass.empty())
                curl_easy_setopt(c, CURLOPT_NOPROXY, Internet->ProxyBypass.c_str());
        }
        curl_easy_setopt(c, CURLOPT_CONNECTTIMEOUT_MS,
                         TimeoutFromEnvironment("JEX_INTERNET_CONNECT_TIMEOUT_MS", 4000));
        curl_easy_setopt(c, CURLOPT_TIMEOUT_MS, TimeoutFromEnvironment("JEX_INTERNET_TIMEOUT_MS", 8000));
        curl_easy_setopt(c, CURLOPT_HTTPHEADER, headers.get());
        curl_easy_setopt(c, CURLOPT_WRITEFUNCTION, &WriteBody);
        curl_easy_setopt(c, CURLOPT_WRITEDATA, &transfer);
        curl_easy_setopt(c, CURLOPT_ERRORBUFFER, error);

        CURLcode rc = curl_easy_perform(c);
        if (rc != CURLE_OK && !(rc == CURLE_WRITE_ERROR && transfer.Cut)) return nullptr;
        return handle.release();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

bool InternetReadFile(HINTERNET File, void* Buffer, uint32_t NumberOfBytesToRead,
                      uint32_t& NumberOfBytesRead) {
    NumberOfBytesRead = 0;
    if (!File || File->Kind != TInternetHandle::TKind::Url || (!Buffer && NumberOfBytesToRead > 0))
        return false;
    const size_t left = File->Body.size() - File->Position;
    const size_t n = std::min<size_t>(left, NumberOfBytesToRead);
    if (n > 0) std::memcpy(Buffer, File->Body.data() + File->Position, n);
    File->Position += n;
    NumberOfBytesRead = static_cast<uint32_t>(n);
    return true;
}

bool InternetCloseHandle(HINTERNET Handle) {
    if (!Handle) return false;
    delete Handle;
    return true;
}

} // namespace dcljexc
