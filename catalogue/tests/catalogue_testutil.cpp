// Helpers of the catalogue tests: the package's resource table, translations, a local HTTP server.
#include "catalogue_testutil.h"

#include <arpa/inet.h>
#include <dlfcn.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "dcljexc/jexdsncn.h"

namespace cattest {

namespace fs = std::filesystem;

// ---- The package's resource table ----------------------------------------------------------------------
TPackageModuleScope::TPackageModuleScope() {
    // The table is reached the way a loader reaches it: through the library's exported entry.
    Dl_info info{};
    if (!dladdr(reinterpret_cast<void*>(&dcljexc::jexIDEComponentDescription), &info) || !info.dli_fname)
        throw std::runtime_error("cannot find the package library");
    FHandle = dlopen(info.dli_fname, RTLD_NOW | RTLD_NOLOAD);
    if (!FHandle) throw std::runtime_error(std::string("dlopen: ") + dlerror());
    FModule = rtl::FindModuleResources(FHandle);
    if (!FModule) throw std::runtime_error("the package has no resource table");
    if (rtl::FindResourceModule(FModule->Name()) != FModule) {
        rtl::RegisterModule(FModule);
        FRegistered = true;
    }
}

TPackageModuleScope::~TPackageModuleScope() {
    if (FRegistered) rtl::UnregisterModule(FModule);
    if (FHandle) dlclose(FHandle);
}

// ---- Translations
// ------------------------------------------------------------------------------------------
namespace {
std::string Quoted(const std::string& s) {
    std::string out = "\"";
    for (char c : s) {
        if (c == '"' || c == '\\') out += '\\';
        if (c == '\n') {
            out += "\\n";
            continue;
        }
        if (c == '\r') {
            out += "\\r";
            continue;
        }
        out += c;
    }
    return out + "\"";
}
} // namespace

TPackageTranslation::TPackageTranslation(rtl::TResourceModule& Module) : FModule(Module) {
    // A language code of letters only, unique to this process, so that tests running side by side never
    // read each other's catalogue.
    std::string code = "x";
    for (unsigned pid = static_cast<unsigned>(getpid()); code.size() < 8; pid /= 26)
        code += static_cast<char>('a' + pid % 26);
    FLanguage = code;
    fs::path file(FModule.FileName());
    std::string stem = file.filename().string();
    stem = stem.substr(0, stem.find(".so"));
    FFile = (file.parent_path() / (stem + "." + FLanguage + ".po")).string();
    Write();
    rtl::SetTranslationCheckInterval(std::chrono::milliseconds(0));
    rtl::SetResourceLanguage(FLanguage);
}

TPackageTranslation::~TPackageTranslation() {
    std::error_code ec;
    fs::remove(FFile, ec);
    rtl::SetResourceLanguage("");
    rtl::SetTranslationCheckInterval(std::chrono::milliseconds(1000));
}

void TPackageTranslation::Set(const std::string& Name, const std::string& Translation) {
    std::string original;
    bool found = false;
    for (const auto& s : FModule.Strings())
        if (s.Name == Name) {
            original = s.Text;
            found = true;
        }
    if (!found) throw std::runtime_error("the package has no resource string " + Name);
    FEntries[Name] = {original, Translation};
    Write();
    rtl::ReloadTranslations();
}

void TPackageTranslation::Write() {
    std::ofstream out(FFile, std::ios::binary | std::ios::trunc);
    out << "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n";
    for (const auto& [name, texts] : FEntries)
        out << "msgctxt " << Quoted(name) << "\nmsgid " << Quoted(texts.first) << "\nmsgstr "
            << Quoted(texts.second) << "\n\n";
}

// ---- HTTP server
// ----------------------------------------------------------------------------------------------
THttpServer::THttpServer() {
    FListen = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (FListen < 0) throw std::runtime_error("socket");
    int yes = 1;
    setsockopt(FListen, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in addr{};
    addr.sin_family = AF_INET;
    addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    addr.sin_port = 0;
    if (bind(FListen, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 || listen(FListen, 8) != 0) {
        close(FListen);
        throw std::runtime_error("bind/listen");
    }
    socklen_t len = sizeof addr;
    getsockname(FListen, reinterpret_cast<sockaddr*>(&addr), &len);
    FPort = ntohs(addr.sin_port);
    FThread = std::thread([this] { Run(); });
}

THttpServer::~THttpServer() {
    FStop = true;
    FThread.join();
    for (int fd : FHeld)
        close(fd);
    close(FListen);
}

void THttpServer::Answer(int Status, std::string Body) {
    std::lock_guard<std::mutex> lock(FLock);
    FStatus = Status;
    FBody = std::move(Body);
}

std::string THttpServer::Url(const std::string& Path) const {
    return "http://127.0.0.1:" + std::to_string(FPort) + Path;
}

std::vector<std::string> THttpServer::Requests() const {
    std::lock_guard<std::mutex> lock(FLock);
    return FRequests;
}

void THttpServer::Run() {
    while (!FStop) {
        pollfd p{FListen, POLLIN, 0};
        if (poll(&p, 1, 50) <= 0) continue;
        int client = accept4(FListen, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0) continue;
        if (FHang) {
            FHeld.push_back(client); // accepted, never answered
            continue;
        }
        Serve(client);
        close(client);
    }
}

void THttpServer::Serve(int Client) {
    std::string head;
    char buffer[1024];
    while (head.find("\r\n\r\n") == std::string::npos && head.size() < 65536) {
        pollfd p{Client, POLLIN, 0};
        if (poll(&p, 1, 2000) <= 0) return;
        ssize_t n = recv(Client, buffer, sizeof buffer, 0);
        if (n <= 0) return;
        head.append(buffer, static_cast<size_t>(n));
    }
    std::string response;
    {
        std::lock_guard<std::mutex> lock(FLock);
        FRequests.push_back(head.substr(0, head.find("\r\n\r\n")));
        const char* reason = FStatus == 200 ? "OK" : (FStatus == 404 ? "Not Found" : "Error");
        response = "HTTP/1.1 " + std::to_string(FStatus) + " " + reason + "\r\nContent-Type: text/plain\r\n" +
                   "Content-Length: " + std::to_string(FBody.size()) + "\r\nConnection: close\r\n\r\n" +
                   FBody;
    }
    size_t sent = 0;
    while (sent < response.size()) {
        ssize_t n = send(Client, response.data() + sent, response.size() - sent, MSG_NOSIGNAL);
        if (n <= 0) return;
        sent += static_cast<size_t>(n);
    }
}

int ClosedPort() {
    int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in addr{};
    addr.sin_family = AF_INET;
    addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr);
    socklen_t len = sizeof addr;
    getsockname(fd, reinterpret_cast<sockaddr*>(&addr), &len);
    close(fd); // bound but never listening: connections are refused
    return ntohs(addr.sin_port);
}

// ---- Environment
// ----------------------------------------------------------------------------------------------
TEnvScope::TEnvScope(const char* Name, const std::string& Value) : FName(Name) {
    if (const char* old = std::getenv(Name)) {
        FHad = true;
        FOld = old;
    }
    setenv(Name, Value.c_str(), 1);
}

TEnvScope::~TEnvScope() {
    if (FHad)
        setenv(FName.c_str(), FOld.c_str(), 1);
    else
        unsetenv(FName.c_str());
}

} // namespace cattest
