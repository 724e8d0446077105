// Feeds any bytes to the reading of the store file: gunzipping, the check of the property list, its
// parser, the archive and the states. What can be read must survive being written and read again.

#include "model/store_content.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace panewright;
    const auto states = unarchivedWindowStates(Bytes(data, data + size));
    if (states) {
        const auto written = archivedSnapshot(snapshotOf(*states));
        const auto reread = written ? unarchivedWindowStates(*written) : std::nullopt;
        if (!reread || reread->size() != states->size()) {
            std::abort();
        }
    }
    return 0;
}
