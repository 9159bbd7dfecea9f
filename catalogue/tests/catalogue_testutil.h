// Helpers of the catalogue tests: the package's own resource table made visible to lookups, a translation
// catalogue for it, and a small HTTP server on 127.0.0.1 standing in for the vendor's site.
#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "rtl/resources.h"

namespace cattest {

// The dclJEXC resource table, registered for the lifetime of the object when it was not registered yet.
class TPackageModuleScope {
public:
    TPackageModuleScope();
    ~TPackageModuleScope();
    TPackageModuleScope(const TPackageModuleScope&) = delete;
    TPackageModuleScope& operator=(const TPackageModuleScope&) = delete;
    rtl::TResourceModule& Module() const { return *FModule; }

private:
    void* FHandle = nullptr;
    rtl::TResourceModule* FModule = nullptr;
    bool FRegistered = false;
};

// A translation catalogue next to the package for a language of this process alone, applied for the
// lifetime of the object: Set translates a resource string of the package, named by its identifier.
class TPackageTranslation {
public:
    explicit TPackageTranslation(rtl::TResourceModule& Module);
    ~TPackageTranslation();
    TPackageTranslation(const TPackageTranslation&) = delete;
    TPackageTranslation& operator=(const TPackageTranslation&) = delete;
    void Set(const std::string& Name, const std::string& Translation);

private:
    void Write();
    rtl::TResourceModule& FModule;
    std::string FLanguage;
    std::string FFile;
    std::map<std::string, std::pair<std::string, std::string>> FEntries; // name -> (original, translation)
};

// A one-thread HTTP/1.1 server on 127.0.0.1 with a port of its own. Every request gets the same answer,
// or none at all with Hang (the connection is held open until the server stops).
class THttpServer {
public:
    THttpServer();
    ~THttpServer();
    THttpServer(const THttpServer&) = delete;
    THttpServer& operator=(const THttpServer&) = delete;

    void Answer(int Status, std::string Body);
    void Hang() { FHang = true; }
    int Port() const { return FPort; }
    std::string Url(const std::string& Path = "/jex6release.txt") const;
    // The request heads received so far (request line and headers, CR LF separated).
    std::vector<std::string> Requests() const;

private:
    void Run();
    void Serve(int Client);
    int FListen = -1;
    int FPort = 0;
    std::atomic<bool> FStop{false};
    std::atomic<bool> FHang{false};
    mutable std::mutex FLock;
    int FStatus = 200;
    std::string FBody;
    std::vector<std::string> FRequests;
    std::vector<int> FHeld;
    std::thread FThread;
};

// A port on 127.0.0.1 that nothing listens on.
int ClosedPort();

// Sets an environment variable for the lifetime of the object.
class TEnvScope {
public:
    TEnvScope(const char* Name, const std::string& Value);
    ~TEnvScope();

private:
    std::string FName;
    bool FHad = false;
    std::string FOld;
};

} // namespace cattest
