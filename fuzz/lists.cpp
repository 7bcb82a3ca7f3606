// Reads of counted lists, but for those whose room is of another order.
#include "list_reads.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using operations::Shape;
    static const auto reads = fuzz::reads_of({Shape::ListRead, Shape::ListWorker});
    fuzz::Input input(data, size);
    fuzz::read_list(fuzz::choose(reads, input), input);
    return 0;
}
