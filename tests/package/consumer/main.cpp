#include <component/Tovarek.h>

#include <iostream>

// Opens the installed catalog and shows that an error carries its number out of the library.
int main() {
    tovarek::Tovarek component;
    try {
        component.catalogDir(CATALOG);
        component.Generate();
    } catch (const tovarek::Error& error) {
        std::cout << error.Description() << '\n';
        return error.Number() == tovarek::eQVXIFerr_templatefilenotdefined ? 0 : 1;
    }
    return 1;
}
