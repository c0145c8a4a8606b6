#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace velmarin::test {

/// The result of a program that has ended.
struct ProgramRun {
    int status = -1; ///< or 128 plus the number of the signal that ended it
    std::string out;
    std::string err;
};

struct ProgramPlace {
    std::filesystem::path folder{}; ///< the working folder
    std::string input{};            ///< standard input
    std::string outFile{};          ///< opened for standard output, instead of a file that is read back
    bool outClosed = false;
};

/// Runs a program, found on PATH like in a shell, and waits for its end.
ProgramRun runProgram(const std::vector<std::string>& words, const ProgramPlace& place = {});

/// A running program with pipes at its standard input and output.
class ProgramAtPipes {
  public:
    explicit ProgramAtPipes(const std::vector<std::string>& words);
    ~ProgramAtPipes();
    ProgramAtPipes(const ProgramAtPipes&) = delete;
    ProgramAtPipes& operator=(const ProgramAtPipes&) = delete;

    void write(const std::string& text) const;
    /// The next line of the output, with its end; less at the end of the output.
    std::string readLine() const;
    void closeInput();
    void closeOutput();
    /// Waits for the end of the program and returns its status.
    int wait();

  private:
    pid_t pid_ = -1;
    int input_ = -1;
    int output_ = -1;
};

} // namespace velmarin::test
