#include "platform/runtime_error.h"

namespace platform {

const char* RuntimeError::StandardText(int number) {
  switch (number) {
    case kInvalidCall:
      return "Invalid procedure call or argument";
    case kOverflow:
      return "Overflow";
    case kSubscriptOutOfRange:
      return "Subscript out of range";
    case kDivisionByZero:
      return "Division by zero";
    case kTypeMismatch:
      return "Type mismatch";
    case kFileNotFound:
      return "File not found";
    case kPathAccess:
      return "Path/File access error";
    case kObjectNotSet:
      return "Object variable or With block variable not set";
    case kInvalidUseOfNull:
      return "Invalid use of Null";
    case kNoSuchMember:
      return "Object doesn't support this property or method";
    case kKeyInUse:
      return "This key is already associated with an element of this collection";
    case kNoCurrentRecord:
      return "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
             "requires a "
             "current record.";
    case kNotUpdatable:
      return "Current Recordset does not support updating.";
    case kNoSuchField:
      return "Item cannot be found in the collection corresponding to the requested name or ordinal.";
    case kObjectClosed:
      return "Operation is not allowed when the object is closed.";
    case kMultipleStep:
      return "Multiple-step operation generated errors. Check each status value.";
    default:
      return "";
  }
}

}  // namespace platform
