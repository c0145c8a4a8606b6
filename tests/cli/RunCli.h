#pragma once

#include "support/TempFolder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace velmarin::test {

/// The result of a run of velmarin-cli.
struct CliRun {
    int status = -1; ///< or 128 and the number of the signal that ended it
    std::string out;
    std::string err;
};

/// The surroundings of a run.
struct CliPlace {
    std::filesystem::path folder{}; ///< its working folder, for relative paths in its messages
    std::string input{};            ///< what it reads from standard input
    std::string outFile{};          ///< a file opened for standard output in place of the one that is read back
    bool outClosed = false;
    bool withoutRights = false; ///< as a user who owns nothing, where the tests are run by root
};

/// Runs the real program and waits for its end.
CliRun runCli(const std::vector<std::string>& arguments, const CliPlace& place = {});

/// A run with its standard input and output at pipes of ours: a program at the other end.
class CliAtPipes {
  public:
    explicit CliAtPipes(const std::vector<std::string>& arguments, const CliPlace& place = {});
    ~CliAtPipes();
    CliAtPipes(const CliAtPipes&) = delete;
    CliAtPipes& operator=(const CliAtPipes&) = delete;

    void write(const std::string& text) const;
    /// The next line of its output, with its end; less at the end of the output.
    std::string readLine() const;
    void closeInput();
    void closeOutput();
    /// Waits for the end.
    int status();

  private:
    int pid_ = -1;
    int toIt_ = -1;
    int fromIt_ = -1;
};

} // namespace velmarin::test
