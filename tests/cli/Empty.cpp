// A program that does nothing, linked like the real one: the least memory that both can be loaded in.
int main() {}
