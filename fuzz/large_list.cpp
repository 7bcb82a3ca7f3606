// The reads of the list whose room is 111 MB.
#include "list_reads.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using operations::Shape;
    static const auto reads = fuzz::reads_of({Shape::ListRead, Shape::ListWorker}, fuzz::Rooms::Larger);
    fuzz::Input input(data, size);
    fuzz::read_list(fuzz::choose(reads, input), input);
    return 0;
}
