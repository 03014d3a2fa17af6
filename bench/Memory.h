#pragma once

namespace bench {

/// Bytes of this process that are in memory now, after what it freed was given back.
double residentBytes();

/// Bytes that this process has allocated and not freed.
double allocatedBytes();

}  // namespace bench
