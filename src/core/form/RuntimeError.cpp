#include "core/form/RuntimeError.h"

namespace yarvo::err {

RuntimeError InvalidProcedureCall() { return {5, "Invalid procedure call or argument"}; }
RuntimeError Overflow() { return {6, "Overflow"}; }
RuntimeError SubscriptOutOfRange() { return {9, "Subscript out of range"}; }
RuntimeError DivisionByZero() { return {11, "Division by zero"}; }
RuntimeError TypeMismatch() { return {13, "Type mismatch"}; }
RuntimeError FileNotFound() { return {53, "File not found"}; }
RuntimeError PathNotFound() { return {76, "Path not found"}; }
RuntimeError ControlArrayElement() { return {340, "Control array element does not exist"}; }
RuntimeError InvalidPropertyValue() { return {380, "Invalid property value"}; }
RuntimeError InvalidPropertyIndex() { return {381, "Invalid property array index"}; }

}  // namespace yarvo::err
