#pragma once
// Keeps one FormHost per loaded form and brings the windows in line with the
// models after the program's events. Also turns a polite request to end
// (SIGTERM, SIGINT, SIGHUP) into a close of the main window, so a session
// logout, Ctrl+C or a closed terminal saves the program's state through its
// close route.

#include <QObject>
#include <QSocketNotifier>

#include <cstdint>
#include <memory>
#include <unordered_map>

namespace yarvo {

class Form;
class FormHost;
class Program;

class WindowHosts final : public QObject {
 public:
  explicit WindowHosts(Program& program);
  ~WindowHosts() override;

  // Installs the termination handlers; call before anything can be lost.
  static void CatchTermination();

  void Sync();
  FormHost* HostOf(const Form& form) const;

 private:
  void Terminate();

  Program& program_;
  std::unique_ptr<QSocketNotifier> termination_;
  std::uint64_t syncedRevision_ = ~std::uint64_t{0};
  std::unordered_map<const Form*, std::unique_ptr<FormHost>> hosts_;
};

}  // namespace yarvo
