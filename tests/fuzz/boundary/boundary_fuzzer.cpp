// The boundary's functions as sequences of calls, each of them compared with a model: results, what
// lies in the host's buffers afterwards, and the parameter list as a whole.

#include <initializer_list>
#include <vector>

#include "fuzz/boundary/session.h"
#include "platform/pause.h"

namespace orvell::fuzz {
namespace {

using Operations = std::vector<Operation>;

Operations Join(std::initializer_list<std::span<const Operation>> parts) {
    Operations operations;
    for (const auto& part : parts) {
        operations.insert(operations.end(), part.begin(), part.end());
    }
    return operations;
}

/// What the host may call at any time, also while a function of its own is being called.
const Operations& CommonOperations() {
    static const Operations operations =
        Join({ListOperations(), ValueOperations(), FormOperations(), VectorOperations(),
              DefinitionFileOperations(), DefinitionOperations(), RecordOperations(),
              ResolveOperations(), EditOperations(), FileOperations()});
    return operations;
}

const Operations& AllOperations() {
    static const Operations operations =
        Join({CommonOperations(), PageOperations(), TransferOperations()});
    return operations;
}

/// The operation of a letter; every other byte stands for one of them too.
const Operation& OperationOf(const Operations& operations, std::uint8_t letter) {
    for (const Operation& operation : operations) {
        if (operation.letter == static_cast<char>(letter)) {
            return operation;
        }
    }
    return operations[letter % operations.size()];
}

void Run(Program program) {
    constexpr int kMostOperations = 200;
    Session session;
    for (int i = 0; i < kMostOperations && !program.IsAtEnd(); ++i) {
        const std::uint8_t letter = program.Byte();
        if (letter == ' ' || letter == '\n') {
            continue;
        }
        OperationOf(AllOperations(), letter).run(session, program);
        session.ExpectMessages(0);
    }
    session.CompareList();
}

}  // namespace

void RunFromCallback(Session& session, Program& program) {
    if (!program.IsAtEnd()) {
        OperationOf(CommonOperations(), program.Byte()).run(session, program);
    }
}

}  // namespace orvell::fuzz

/// The host has no time to wait between the elements of a vector.
void orvell::platform::Pause(std::uint32_t) {}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvell::fuzz::Run(orvell::fuzz::Program({data, size}));
    return 0;
}
