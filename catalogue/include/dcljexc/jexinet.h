// The few internet calls the release check makes, under the platform's names and with its semantics
// (handles, flags, one read at a time), carried out over HTTP by libcurl.
//
// Timeouts, in milliseconds, from the environment (a value that is not a positive number is ignored):
//   JEX_INTERNET_CONNECT_TIMEOUT_MS  connecting to the server, default 4000
//   JEX_INTERNET_TIMEOUT_MS          the whole request until the body has arrived, default 8000
// so that a server that accepts and never answers cannot hold the designer longer than that.
#pragma once

#include <cstdint>
#include <string>

namespace dcljexc {

// An open session or an opened URL; nil when the call failed.
struct TInternetHandle;
using HINTERNET = TInternetHandle*;

// Access types of InternetOpen.
inline constexpr uint32_t INTERNET_OPEN_TYPE_PRECONFIG = 0, INTERNET_OPEN_TYPE_DIRECT = 1,
                          INTERNET_OPEN_TYPE_PROXY = 3;
// Flags of InternetOpenUrl: on the wire RELOAD asks caches for a fresh copy ("Cache-Control: no-cache"),
// RESYNCHRONIZE for a revalidated one ("max-age=0"), PRAGMA_NOCACHE adds "Pragma: no-cache"; nothing is
// ever cached here, so NO_CACHE_WRITE holds already.
inline constexpr uint32_t INTERNET_FLAG_RELOAD = 0x80000000u, INTERNET_FLAG_NO_CACHE_WRITE = 0x04000000u,
                          INTERNET_FLAG_PRAGMA_NOCACHE = 0x00000100u,
                          INTERNET_FLAG_RESYNCHRONIZE = 0x00000800u;

// The largest body kept of one URL; a longer body is cut there (the release check reads 1023 bytes).
inline constexpr size_t InternetMaxBody = 64 * 1024;

// A session with the given user agent. Direct access ignores any proxy from the environment; proxy access
// uses Proxy ("host:port"); preconfigured access leaves the environment's proxy settings in force.
HINTERNET InternetOpen(const std::string& Agent, uint32_t AccessType, const std::string& Proxy = {},
                       const std::string& ProxyBypass = {}, uint32_t Flags = 0);
// Requests an http or https URL and waits for its body (redirects followed). Headers holds extra request
// headers, one per line. Nil when the URL cannot be fetched: bad URL or scheme, no connection, timeout,
// or an HTTP error status.
HINTERNET InternetOpenUrl(HINTERNET Internet, const std::string& Url, const std::string& Headers,
                          uint32_t Flags, uintptr_t Context = 0);
// Copies the next bytes of the body, at most NumberOfBytesToRead; NumberOfBytesRead is 0 at the end.
// False for a handle that is not an opened URL.
bool InternetReadFile(HINTERNET File, void* Buffer, uint32_t NumberOfBytesToRead,
                      uint32_t& NumberOfBytesRead);
// Frees a handle (nil is ignored; false then).
bool InternetCloseHandle(HINTERNET Handle);

} // namespace dcljexc
