// The design host: start-up (resource module, system directory, built-in platform packages, main window,
// tool services, standard palette, packages) and an orderly shutdown in the reverse order.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ide/packages.h"
#include "session.h"

namespace host {

class TMainWindow;

// The host's standard packages, loaded from its own folder when present.
inline constexpr const char* SStandardRuntimePackage = "libjexc60.so";
inline constexpr const char* SStandardDesignPackage = "libdclJEXC.so";

struct THostOptions {
    // Empty: --system-dir was not given; $JEX_SYSTEM_DIR or the default under the user's config folder.
    std::string SystemDir;
    // Extra names for platform packages ("jexbuiltin" -> "vcl60"), installed before any package loads.
    std::vector<std::pair<std::string, std::string>> PackageAliases;
    bool LoadStandardPackages = true;
    // Where the standard packages are looked for; empty: the executable's folder.
    std::string StandardPackageDir;
    // Loaded after the standard packages, in order; a failure here fails the start.
    std::vector<std::string> Packages;
};

class THost {
public:
    // Reports notes (a standard package that is missing or did not load) to `note`, once each.
    explicit THost(THostOptions options, std::function<void(const std::string&)> note = {});
    // Shuts down: closes the form, frees windows that packages left open, unloads every package while
    // the registries still exist, then the host's own parts.
    ~THost();
    THost(const THost&) = delete;
    THost& operator=(const THost&) = delete;

    // Runs the start-up. Raises ide::EPackageLoadError for a --package that does not load (the host is
    // then left started, with the packages loaded before it), rtl::Exception for other start-up errors.
    void Start();

    TMainWindow* MainWindow() const { return FMainWindow; }
    TDesignSession& Session() { return FSession; }
    const THostOptions& Options() const { return FOptions; }
    // Notes given during start-up (also passed to the note callback).
    const std::vector<std::string>& Notes() const { return FNotes; }

    // Loads a package as the Install Packages dialog does, then refreshes the palette.
    ide::TPackage* InstallPackage(const std::string& fileName);
    // Unloads an explicitly loaded package. Raises rtl::EPackageError when other loaded packages require
    // it or when the form under design holds components of its classes.
    void RemovePackage(ide::TPackage* package);
    // The packages a person loaded (standard and --package ones included), in load order.
    std::vector<ide::TPackage*> LoadedPackages() const;

    // Calls `fn` with the same text once, however often it is reported.
    void Note(const std::string& text);

private:
    void RegisterStandardPalette();
    void LoadStandardPackages();
    void Shutdown();

    THostOptions FOptions;
    std::function<void(const std::string&)> FNoteFn;
    std::vector<std::string> FNotes;
    TDesignSession FSession;
    TMainWindow* FMainWindow = nullptr;
    bool FStarted = false;
    bool FBuiltinsInstalled = false;
};

} // namespace host
