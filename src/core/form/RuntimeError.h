#pragma once
// The run-time error of the program's routines, and the guard that skips a
// failed statement.
//
// Most routines "go on with the next statement after an error": each fallible
// statement runs inside ResumeNext, which swallows a RuntimeError (and any
// standard exception) so that the routine goes on. ProcessEnd is not an error:
// it unwinds through every guard to the event loop, which ends the program.

#include <stdexcept>
#include <string>

namespace yarvo {

class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(int number, const std::string& description)
      : std::runtime_error(description), number_(number) {}
  int Number() const { return number_; }

 private:
  int number_;
};

// The error numbers the program raises itself, with their descriptions.
namespace err {
RuntimeError InvalidProcedureCall();  // 5
RuntimeError Overflow();              // 6
RuntimeError SubscriptOutOfRange();   // 9
RuntimeError DivisionByZero();        // 11
RuntimeError TypeMismatch();          // 13
RuntimeError FileNotFound();          // 53
RuntimeError PathNotFound();          // 76
RuntimeError ControlArrayElement();   // 340
RuntimeError InvalidPropertyValue();  // 380
RuntimeError InvalidPropertyIndex();  // 381
}  // namespace err

// Thrown to end the process: CloseYarvo, the instance rule. Caught only by the
// code that runs the event loop.
struct ProcessEnd {
  int exitCode = 0;
};

// Runs one statement; a run-time error in it is skipped without a message.
template <class Statement>
void ResumeNext(Statement&& statement) {
  try {
    statement();
  } catch (const std::exception&) {
    // The statement failed; the routine goes on with the next one.
  }
}

}  // namespace yarvo
