// The boundary's functions as sequences of calls, each of them compared with a model: results, what
// lies in the host's buffers afterwards, and the parameter list as a whole.

#include <vector>

#include "session.h"

namespace orvell::fuzz {
namespace {

std::vector<Operation> AllOperations() {
    std::vector<Operation> operations;
    for (const auto& part : {ListOperations(), ValueOperations(), VectorOperations()}) {
        operations.insert(operations.end(), part.begin(), part.end());
    }
    return operations;
}

/// The operation of a letter; every other byte stands for one of them too.
const Operation& OperationOf(std::uint8_t letter) {
    static const std::vector<Operation> operations = AllOperations();
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
        OperationOf(letter).run(session, program);
        session.ExpectMessages(0);
    }
    session.CompareList();
}

}  // namespace
}  // namespace orvell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    orvell::fuzz::Run(orvell::fuzz::Program({data, size}));
    return 0;
}
