// A plugin for clang-tidy: restricts the checks to the declarations in our own files. In the headers of Qt,
// the compiler and Windows clang-tidy reports nothing but spends four fifths of its time.

#include <clang/AST/ASTConsumer.h>
#include <clang/AST/ASTContext.h>
#include <clang/AST/DeclCXX.h>
#include <clang/Frontend/CompilerInstance.h>
#include <clang/Frontend/FrontendPluginRegistry.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

/// The names of the classes that @p declaration declares without a definition, itself or in its namespaces.
void collectDeclared(const clang::Decl *declaration, std::set<clang::DeclarationName> &names)
{
    if (const auto *record = llvm::dyn_cast<clang::CXXRecordDecl>(declaration)) {
        if (!record->isThisDeclarationADefinition()) {
            names.insert(record->getDeclName());
        }
    } else if (const auto *space = llvm::dyn_cast<clang::NamespaceDecl>(declaration)) {
        for (const clang::Decl *inner : space->decls()) {
            collectDeclared(inner, names);
        }
    }
}

/// Runs before clang-tidy's own consumer, which traverses the declarations in scope.
class OwnDeclarations : public clang::ASTConsumer {
public:
    void HandleTranslationUnit(clang::ASTContext &context) override
    {
        const clang::SourceManager &sources = context.getSourceManager();
        std::vector<clang::Decl *> scope;
        std::vector<clang::CXXRecordDecl *> foreignClasses;
        std::set<clang::DeclarationName> declared;
        for (clang::Decl *declaration : context.getTranslationUnitDecl()->decls()) {
            const clang::SourceLocation place = sources.getExpansionLoc(declaration->getLocation());
            if (place.isValid() && !sources.isInSystemHeader(place)) {
                scope.push_back(declaration);
                collectDeclared(declaration, declared);
            } else if (auto *record = llvm::dyn_cast<clang::CXXRecordDecl>(declaration)) {
                foreignClasses.push_back(record);
            }
        }
        // One check looks for the class that a declaration in the wrong namespace was meant to declare.
        for (clang::CXXRecordDecl *record : foreignClasses) {
            if (declared.count(record->getDeclName()) != 0) {
                scope.push_back(record);
            }
        }
        context.setTraversalScope(scope);
    }
};

class OwnDeclarationsAction : public clang::PluginASTAction {
protected:
    std::unique_ptr<clang::ASTConsumer> CreateASTConsumer(clang::CompilerInstance & /*compiler*/,
                                                          clang::StringRef /*file*/) override
    {
        return std::make_unique<OwnDeclarations>();
    }
    bool ParseArgs(const clang::CompilerInstance & /*compiler*/,
                   const std::vector<std::string> & /*arguments*/) override
    {
        return true;
    }
    ActionType getActionType() override { return AddBeforeMainAction; }
};

const clang::FrontendPluginRegistry::Add<OwnDeclarationsAction> registered("own-declarations",
                                                                           "checks our own declarations");

} // namespace
