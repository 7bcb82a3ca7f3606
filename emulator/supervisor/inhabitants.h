// All processes of a world, wherever they have gone.
#pragma once

namespace emulator {

class Inhabitants
{
public:
    Inhabitants() = default;
    virtual ~Inhabitants() = default;
    Inhabitants(const Inhabitants&) = delete;
    Inhabitants& operator=(const Inhabitants&) = delete;

    // Sends a signal to each of them.
    virtual void signal(int number) const = 0;

    // Kills whoever is left, and returns when nobody is.
    void kill() const;
};

// Those of the process namespace whose first process the caller is.
class OfNamespace : public Inhabitants
{
public:
    void signal(int number) const override;
};

// The descendants of the caller, who adopts orphans.
class Descendants : public Inhabitants
{
public:
    Descendants();

    // Throws if they cannot be found.
    void check() const;

    void signal(int number) const override;
};

} // namespace emulator
