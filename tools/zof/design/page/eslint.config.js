import tseslint from 'typescript-eslint';

export default tseslint.config(
    ...tseslint.configs.recommendedTypeChecked.map((config) => ({ ...config, files: ['src/**/*.{ts,tsx}'] })),
    {
        files: ['src/**/*.{ts,tsx}'],
        languageOptions: { parserOptions: { projectService: true, tsconfigRootDir: import.meta.dirname } },
        rules: { '@typescript-eslint/no-floating-promises': 'error', eqeqeq: 'error' },
    },
);
