// ConsoleMessageHandler: prints each library message as one line on a stream (standard error by
// default), with the prefix of its kind, as far as the verbosity asks. A progress bar drawn on the
// same stream is cleared first, so that a message never shares a line with it.
#pragma once

#include <iostream>
#include <string>

#include "console/ConsoleProgressHandler.h"
#include "core/MessageHandler.h"

class ConsoleMessageHandler : public mv::MessageHandler {
 public:
  enum Verbosity {
    Quiet,    // errors only
    Normal,   // errors, warnings and information
    Verbose,  // and the plain lines of the library (file versions, trees)
    Debug,    // and debug lines
  };

  explicit ConsoleMessageHandler(std::ostream& out = std::cerr, Verbosity verbosity = Normal,
                                 ConsoleProgressHandler* bar = nullptr)
      : out_(out), verbosity_(verbosity), bar_(bar) {}

  void setVerbosity(Verbosity verbosity) { verbosity_ = verbosity; }

  void error(const std::string& text) override {
    ++errors_;
    line(Quiet, "Morvo Error: ", text);
  }
  void warning(const std::string& text) override { line(Normal, "Morvo Warning: ", text); }
  void info(const std::string& text) override { line(Normal, "Morvo Info: ", text); }
  void debug(const std::string& text) override { line(Debug, "Morvo Debug: ", text); }
  void print(const std::string& text) override { line(Verbose, "", text); }

  int errorCount() const { return errors_; }

 private:
  void line(Verbosity least, const char* prefix, const std::string& text);

  std::ostream& out_;
  Verbosity verbosity_;
  ConsoleProgressHandler* bar_;  // not owned
  int errors_ = 0;
};
