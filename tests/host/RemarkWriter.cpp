// A host that adds 200 remarks to one customer and saves each. The test runs several at the same time. The first
// argument becomes part of every text.

#include <cstdio>
#include <exception>
#include <string>

#include "runtime/RemarkContext.h"

namespace {

void AddRemarks(const std::string& writer) {
  const auto context = quorvel::RemarkContext::Create();
  context->Load("CustMaint", "C1020", "admin");
  for (int i = 1; i <= 200; ++i) {
    context->AddRemark(std::string("Cust.General"), "writer " + writer + ", remark " + std::to_string(i), "admin");
    context->Save(true);
  }
  context->Dispose();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    AddRemarks(argc > 1 ? argv[1] : "");
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
