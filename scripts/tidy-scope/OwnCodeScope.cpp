// A plugin for clang-tidy: lets its checks visit the declarations of this project only. Without it every check visits
// the whole standard library, GoogleTest and wxWidgets in each file, and then drops what it finds there.
#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/Basic/SourceManager.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

namespace {

class ScopeConsumer : public clang::ASTConsumer {
 public:
  void HandleTranslationUnit(clang::ASTContext& context) override {
    const clang::SourceManager& sources = context.getSourceManager();
    std::vector<clang::Decl*> own;
    for (clang::Decl* declaration : context.getTranslationUnitDecl()->decls()) {
      const clang::SourceLocation begin = declaration->getBeginLoc();
      if (begin.isValid() && !sources.isInSystemHeader(begin)) own.push_back(declaration);
    }
    context.setTraversalScope(own);
  }
};

/// Runs before clang-tidy's own consumer, whose traversal begins at the scope.
class ScopeAction : public clang::PluginASTAction {
 protected:
  std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance&, llvm::StringRef) override {
    return std::make_unique<ScopeConsumer>();
  }
  bool ParseArgs(const clang::CompilerInstance&, const std::vector<std::string>&) override { return true; }
  ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<ScopeAction> kRegistration("own-code-scope", "checks visit own code only");

}  // namespace
