// Placeholder until the host tool lands.
int main() { return 0; }
