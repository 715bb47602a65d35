// Field services on timestamps: the current timestamp from the session's
// clock, and the conversions between a view's 20-digit timestamp and the
// host text that the database's date masks read and write.
#ifndef WATRIX_SERVICES_TIMESTAMP_H_
#define WATRIX_SERVICES_TIMESTAMP_H_

#include "frame/entry.h"
#include "frame/run_context.h"

namespace lk {

// The service itself: reads service_code "702" and fills answer_date
// (YYYYMMDD), answer_time (HHMMSS) and answer_text (20 digits and NUL) from
// the clock of the SessionPort behind `a`. Without a SessionPort or clock the
// machine's local time answers. Any other code leaves the block as it is.
void CurrentTimestamp(HandleA a, HandleB b, ServiceBlock* block);

// The one way to get "now" into an attribute: zero the service block, ask for
// code "702", format the answers with "%8.8ld", zero the fraction, copy the
// 21 bytes into `attribute`. Two calls in the same second give the same text.
void StampCurrentTimestamp(HandleA a, HandleB b, RunContext* rc, char* attribute);

// 20 digits -> "YYYY-MM-DDHH.MI.SS" (18 characters and NUL; `host` has room
// for 19 bytes). The fraction is dropped.
void TimestampToHost(const char* attribute, char* host);

// "YYYY-MM-DDHH.MI.SS" -> 20 digits with a zero fraction, and NUL.
void TimestampFromHost(const char* host, char* attribute);

// The picture "YYYY-MM-DD-HH.MI.SS.NNNNNN" of a 20-digit timestamp, as a
// window shows it (26 characters and NUL; `shown` has room for 27 bytes). A
// zeroed attribute shows as zeros.
void TimestampToPicture(const char* attribute, char* shown);

}  // namespace lk

#endif  // WATRIX_SERVICES_TIMESTAMP_H_
