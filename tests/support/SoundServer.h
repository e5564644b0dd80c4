#pragma once
// A private PulseAudio server with one null sink, for tests that must hear
// what the program plays: the sink's monitor is recorded with parec.
//
// While the object lives, this process's environment points every sound
// client (this process and the children it starts) at the private server;
// the environment is put back when it goes.

#include <sys/types.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/TempDir.h"

namespace yarvo::test {

// A child process, ended with SIGTERM and reaped when this goes out of scope.
class ChildProcess {
 public:
  // Standard output and error go to the given files.
  explicit ChildProcess(std::vector<std::string> argv,
                        const std::filesystem::path& output = "/dev/null",
                        const std::filesystem::path& errors = "/dev/null");
  ~ChildProcess() { Finish(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  bool Started() const { return pid_ > 0; }
  bool Running() const;
  void Finish();

 private:
  pid_t pid_ = -1;
};

// The stereo float samples parec wrote, interleaved.
std::vector<float> ReadRecording(const std::filesystem::path& raw);

class SoundServer {
 public:
  static constexpr int kRate = 44100;
  static constexpr const char* kSink = "yarvo_test";

  SoundServer();
  ~SoundServer();
  SoundServer(const SoundServer&) = delete;
  SoundServer& operator=(const SoundServer&) = delete;

  // False when the server could not be started here; tests then skip.
  bool Ready() const { return server_ != nullptr; }
  // The value that points a client at this server.
  std::string PulseServer() const { return "unix:" + socket_.string(); }
  // The server's own log, for a failure message.
  std::string Log() const;
  // Ends the server, as a crash of the sound server would.
  void Stop() { server_.reset(); }

  // Records the sink's monitor (float32 stereo at kRate) to `raw` until the
  // returned process is finished.
  std::unique_ptr<ChildProcess> Record(const std::filesystem::path& raw) const;

  const TempDir& Folder() const { return dir_; }

 private:
  TempDir dir_;
  std::filesystem::path socket_;
  std::vector<std::pair<const char*, std::optional<std::string>>> saved_;
  std::unique_ptr<ChildProcess> server_;
};

}  // namespace yarvo::test
