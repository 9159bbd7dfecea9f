// Helpers of the jexdesign tests: running the built executable with arguments and standard input in a
// temporary folder, and the paths of the test packages.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace hosttest {

using Json = nlohmann::ordered_json;

struct TRun {
    int Status = -1;
    std::string Out;
    std::string Err;
    Json Parsed() const { return Json::parse(Out); }
};

inline std::string ReadAll(const std::filesystem::path& p) {
    std::ifstream f(p, std::ios::binary);
    std::ostringstream s;
    s << f.rdbuf();
    return s.str();
}

inline void WriteAll(const std::filesystem::path& p, const std::string& text) {
    std::ofstream f(p, std::ios::binary);
    f << text;
}

inline std::string Quote(const std::string& s) {
    std::string q = "'";
    for (char c : s)
        q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

// A temporary folder per test, removed afterwards; it is also the system directory of every run.
class HostTest : public ::testing::Test {
protected:
    void SetUp() override {
        Dir = std::filesystem::temp_directory_path() /
              ("jexdesign-test-" + std::to_string(::getpid()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(Dir);
        std::filesystem::create_directories(Dir / "system");
    }
    void TearDown() override { std::filesystem::remove_all(Dir); }

    // The options that load the platform/ide test lamps (which require "jexbuiltin", the alias of vcl60).
    std::vector<std::string> LampOptions() const {
        return {"--package-alias", "jexbuiltin=vcl60", "--package", JEX_LAMP_PACKAGE};
    }
    std::vector<std::string> AllPackages() const {
        std::vector<std::string> o = LampOptions();
        o.push_back("--package");
        o.push_back(JEX_HOSTTEST_PACKAGE);
        return o;
    }

    // Runs jexdesign with the arguments, without the standard packages and with the test's system folder.
    TRun Run(const std::vector<std::string>& args, const std::string& input = {}) {
        std::string cmd =
            Quote(JEXDESIGN_EXE) + " --no-standard-packages --system-dir " + Quote((Dir / "system").string());
        for (const auto& a : args)
            cmd += " " + Quote(a);
        return RunCommand(cmd, input);
    }
    TRun RunRaw(const std::vector<std::string>& args, const std::string& input = {}) {
        std::string cmd = Quote(JEXDESIGN_EXE);
        for (const auto& a : args)
            cmd += " " + Quote(a);
        return RunCommand(cmd, input);
    }
    TRun RunCommand(const std::string& cmd, const std::string& input) {
        auto in = Dir / "stdin.txt", out = Dir / "stdout.txt", err = Dir / "stderr.txt";
        WriteAll(in, input);
        std::string full =
            cmd + " < " + Quote(in.string()) + " > " + Quote(out.string()) + " 2> " + Quote(err.string());
        int raw = std::system(full.c_str());
        TRun r;
        r.Status = WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
        r.Out = ReadAll(out);
        r.Err = ReadAll(err);
        return r;
    }
    // Runs a script written to a file; the transcript is parsed.
    TRun RunScript(const Json& script, const std::vector<std::string>& options) {
        auto file = Dir / "script.json";
        WriteAll(file, script.dump(2));
        std::vector<std::string> args = options;
        args.push_back("run");
        args.push_back(file.string());
        return Run(args);
    }

    std::filesystem::path Dir;
};

// The one line of an error: no more than one line on stderr.
inline int LineCount(const std::string& s) {
    int n = 0;
    for (char c : s)
        n += c == '\n';
    return n;
}

} // namespace hosttest
