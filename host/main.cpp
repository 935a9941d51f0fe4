// The desk: a reference host for the chart module.
int main() { return 0; }
