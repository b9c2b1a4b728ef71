// What passes between the lesson's module and its page, in C++: the records of wire/records.def.
//
//   wire::write(record, wire::Sentence{.words = "Dat klopt."});
#pragma once

#include "hosts/web/wire.h"

namespace tabulon::web::wire {

#define FIELD(type, name) type name;
#define RECORD(name, fields) \
  struct name {              \
    fields                   \
  };
#include "hosts/web/lesson/wire/records.def"
#undef FIELD

#define FIELD(type, name) write_##type(record, each.name);
#define RECORD(name, fields)                            \
  inline void write(Record& record, const name& each) { \
    fields                                              \
  }
#include "hosts/web/lesson/wire/records.def"
#undef FIELD

}  // namespace tabulon::web::wire
