#pragma once

#include "module_host.h"
#include "output_hash.h"

namespace orvell::soak {

/// What a host does with the values of a project whose definitions are loaded: reads them from the
/// target system, shows, changes and checks them, builds them from texts and from the parameter
/// list, writes them back, and asks for all that is known about their types. Adds what the module
/// answers to `output`.
void WorkOnValues(const ModuleHost& host, OutputHash& output);

/// Lets a user edit a value; throws `Failure` when it is not as he wants it then.
void EditValue(ModuleHost& host);

}  // namespace orvell::soak
