#include "emulator/state/state_file.h"

#include "emulator/state/replaced_file.h"

// What goes through the descriptions comes before them.
#include "emulator/state/loading.h"
#include "emulator/state/saving.h"
#include "emulator/state/schema.h"

#include "emulator/state/description.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace emulator {

namespace {

struct CloseFile
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

} // namespace

json::Value state_of(Module& module)
{
    description::Saving saving(module.state());
    describe(saving, module.state());
    return {saving.take()};
}

void set_state(Module& module, const json::Value& document)
{
    auto state = std::make_unique<State>(module.state().settings);
    description::Loading loading(*state, document);
    describe(loading, *state);
    loading.finish();
    module.replace(std::move(state));
}

std::string read_file(const std::string& path)
{
    const File file(std::fopen(path.c_str(), "re"));
    if (!file)
        throw std::runtime_error("cannot read '" + path + "': " + std::strerror(errno));
    std::string text;
    std::array<char, 65536> piece;
    for (std::size_t length = 0; (length = std::fread(piece.data(), 1, piece.size(), file.get())) > 0;)
        text.append(piece.data(), length);
    if (std::ferror(file.get()) != 0)
        throw std::runtime_error("cannot read '" + path + "': " + std::strerror(errno));
    return text;
}

void load_state(Module& module, const std::string& path)
{
    const std::string text = read_file(path);
    try {
        set_state(module, json::parse(text));
    } catch (const json::Error& error) {
        throw std::runtime_error(path + ":" + error.what());
    }
}

void save_state(Module& module, const std::string& path)
{
    ReplacedFile(path).replace(json::print(state_of(module)));
}

json::Value schema_of_states()
{
    State blank({});
    description::Schema schema(blank);
    describe(schema, blank);
    return schema.document();
}

} // namespace emulator
